#pragma once

#include "platform/image/Frame.h"

#include <cstdint>
#include <vector>

namespace murbo {

/// A small grey picture for measuring: upright, from 0 for black to 255 for the brightest that its transfer
/// can tell, whatever the range and the depth of what it was made from.
struct Luma {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; ///< row by row

    /// The mean of each square of `step` by `step` stored samples, taken right where the decoder left them.
    /// What does not fill a square at the right and lower edge is left out. Empty where nothing is left.
    static Luma of(const Frame& frame, int step);

    /// The same at half the size.
    Luma halved() const;

    bool empty() const { return pixels.empty(); }
    const std::uint8_t* row(int y) const { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
};

}
