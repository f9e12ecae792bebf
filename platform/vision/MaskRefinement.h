#pragma once

#include "platform/image/Bitmap.h"

#include <span>

namespace murbo {

/// Turns what a network says of a small copy of a picture into a mask of the picture's own size, whose edges
/// lie where the picture's do.
namespace MaskRefinement {

/// A mask of the picture's size, white at its alpha. `likely` is 0…1 for each pixel of `small`, the picture
/// as the network saw it, of any shape. Depends on these alone, to the bit.
Bitmap refined(const Bitmap& picture, const Bitmap& small, std::span<const float> likely);

/// How much of a mask's picture is subject, 0…1.
double share(const Bitmap& mask);

}

}
