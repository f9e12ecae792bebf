#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Image.h"
#include "platform/image/Planes.h"

namespace murbo {

/// Draws images. Stateless: call it from any thread, for different targets or for different bands of one.
namespace Canvas {

/// Draws rows `top` to `bottom` (exclusive) of `image` into `target`, replacing what stands there: the
/// image's origin falls on the bitmap's top left. Bands may be drawn in any order and on any threads.
void draw(const Image& image, Bitmap& target, int top, int bottom);
/// The whole bitmap.
void draw(const Image& image, Bitmap& target);

/// Draws `image` over black straight into planes for an encoder, with no full-size bitmap between.
/// Rows `top` to `bottom`, both even (but for the last).
void draw(const Image& image, Planes& target, int top, int bottom);
void draw(const Image& image, Planes& target);

/// The image's pixels within `rect`, which is rounded outward to whole pixels. Throws Problem if too large.
Bitmap bitmap(const Image& image, const Rect& rect);

}

}
