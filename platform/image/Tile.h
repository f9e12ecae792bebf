#pragma once

#include "platform/image/PixelRect.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace murbo {

/// Pixels in memory that stand for an area of the canvas.
struct Tile {
    std::uint8_t* pixels = nullptr; ///< of the area's top left
    std::ptrdiff_t stride = 0;
    PixelRect area;

    std::uint8_t* at(int x, int y) const {
        return pixels + (y - area.top) * stride + std::ptrdiff_t(x - area.left) * 4;
    }
    Tile part(const PixelRect& rect) const { return {at(rect.left, rect.top), stride, rect}; }

    /// Hands it on in strips that stay in a near cache.
    template <typename Take>
    void inStrips(const Take& take) const {
        constexpr int stripPixels = 1 << 14;
        const int rows = std::max(stripPixels / area.width(), 1);
        for (int top = area.top; top < area.bottom; top += rows)
            take(part({area.left, top, area.right, std::min(top + rows, area.bottom)}));
    }
};

/// Draws every pixel of a tile.
using DrawTile = std::function<void(const Tile&)>;

}
