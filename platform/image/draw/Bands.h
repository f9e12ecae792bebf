#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Image.h"

namespace murbo {

/// Draws where somebody waits for this one picture.
namespace Bands {

/// Draws `image` into all of `target`, as `Canvas::draw` does, in bands side by side on the machine's
/// processors.
void draw(const Image& image, Bitmap& target);

}

}
