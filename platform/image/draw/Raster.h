#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/draw/Pixels.h"

namespace murbo {

/// A part of some grid of pixels, drawn already.
struct Raster {
    Bitmap bitmap;
    PixelRect area; ///< of the grid
    bool opaque = false;

    Tile tile() { return {bitmap.row(0), bitmap.stride(), area}; }

    /// Whether so much can be drawn by itself: what would need more (a shear without measure) is left out.
    static bool holds(const PixelRect& area);
    /// One of that area, to be filled.
    static Raster of(const PixelRect& area, bool opaque);
};

/// A grid of whole pixels over a picture's extent.
struct Grid {
    PixelRect whole;
    Transform toGrid;

    /// As fine as the picture is seen through `place`, and at most `most` times as fine as its own pixels.
    static Grid over(const Rect& extent, const Transform& place, double most);
};

}
