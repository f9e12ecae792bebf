#pragma once

#include "platform/image/Tile.h"

#include <algorithm>

namespace murbo {

/// Hands a tile on in strips that stay in a near cache.
template <typename Take>
void inStrips(const Tile& tile, const Take& take) {
    constexpr int pixels = 1 << 14;
    const auto& area = tile.area;
    const int rows = std::max(pixels / area.width(), 1);
    for (int top = area.top; top < area.bottom; top += rows)
        take(tile.part({area.left, top, area.right, std::min(top + rows, area.bottom)}));
}

}
