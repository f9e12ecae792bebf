#pragma once

#include <cstdint>

namespace murbo::Kernels {

/// A straight line through whole numbers: `at(i) = start + i · step`, in 1/2^24. Every position of a picture
/// comes from such a line by its absolute index, so that it is the same in any band and any width of vector.
struct Line {
    static constexpr int bits = 24;
    static constexpr std::int64_t one = std::int64_t(1) << bits;

    std::int64_t start = 0;
    std::int64_t step = 0;

    std::int64_t at(std::int64_t index) const { return start + index * step; }

    /// The line through `offset + index · slope`, within what can be counted.
    static Line through(double offset, double slope);
};

}
