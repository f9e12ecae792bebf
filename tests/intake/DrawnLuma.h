#pragma once

#include "core/intake/samples/Luma.h"

#include <algorithm>
#include <cmath>

namespace murbo::drawn {

/// A small grey picture of `level(x, y)`.
template <class Level>
Luma luma(int width, int height, Level level) {
    Luma luma{width, height, {}};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            luma.pixels.push_back(static_cast<std::uint8_t>(std::clamp(std::lround(level(x, y)), 0L, 255L)));
    return luma;
}

/// The same with each of its levels changed.
template <class Change>
Luma changed(Luma luma, Change change) {
    for (auto& pixel : luma.pixels)
        pixel = static_cast<std::uint8_t>(std::clamp(std::lround(change(double(pixel))), 0L, 255L));
    return luma;
}

}
