#pragma once

#include "platform/image/Bitmap.h"

#include <optional>
#include <string>
#include <string_view>

namespace murbo::Jpeg {

/// A bitmap over black as a JPEG file, sRGB. `quality` is 0 to 1; from 0.9 on colour keeps its full
/// resolution. Throws Problem where there is no memory for it.
std::string encode(const Bitmap& bitmap, double quality);

/// The picture of a JPEG file; nothing where the bytes are none, are cut off before the first line, or name a
/// picture over `largest` pixels a side or 2^28 pixels in all. What is missing after a line is grey.
std::optional<Bitmap> decode(std::string_view bytes, int largest = 32768);

}
