#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Tile.h"

namespace murbo {

/// A part of some grid of pixels, drawn already.
struct Raster {
    Bitmap bitmap;
    PixelRect area; ///< of the grid
    bool opaque = false;

    Tile tile() { return {bitmap.row(0), bitmap.stride(), area}; }
    /// The pixel at a place of the grid.
    const std::uint8_t* at(int x, int y) const {
        return bitmap.row(y - area.top) + std::ptrdiff_t(x - area.left) * 4;
    }

    /// Whether an area is small enough to be drawn by itself: a larger one (of an extreme shear) is left out.
    static bool holds(const PixelRect& area);
    /// One of that area, to be filled.
    static Raster of(const PixelRect& area, bool opaque);
};

}
