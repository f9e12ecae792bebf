#pragma once

#include <cstdint>
#include <vector>

namespace murbo::Kernels {

/// A straight line through whole numbers: `at(i) = start + i · step`, in 1/2^24. Every position of a picture
/// comes from such a line by its absolute index, so that it is the same in any band and any width of vector.
struct Line {
    static constexpr int bits = 24;
    static constexpr std::int64_t one = std::int64_t(1) << bits;

    std::int64_t start = 0;
    std::int64_t step = 0;

    std::int64_t at(std::int64_t index) const { return start + index * step; }

    /// The line through `offset + index · slope`, held within what can be counted.
    static Line through(double offset, double slope);
};

/// Which samples make each output along one axis, and how much of each. An output averages the stretch of
/// source that it covers, and never less than one sample: that is bilinear interpolation when enlarging, and
/// an exact average when scaling down.
///
/// - `narrow` (at most three samples an output): the result is the heaviest sample plus the others'
/// differences
///   from it, each times its weight in 1/2^15 and rounded: a flat area stays exactly what it is.
/// - otherwise the result is the rounded sum of samples times weights in 1/2^14.
struct Taps {
    struct Output {
        int first;   ///< the first sample
        int count;   ///< samples, at least 1
        int base;    ///< the heaviest, counted from `first`
        int weights; ///< where its weights start
    };

    int from = 0; ///< the output that `outputs` starts with
    int low = 0;  ///< samples read: from `low` to `high`, exclusive
    int high = 0;
    bool narrow = true;
    std::vector<Output> outputs;
    std::vector<std::int16_t> weights;

    /// `outputs` from…to of an axis where the edges of output i lie at line.at(i) and line.at(i + 1), in
    /// samples. Samples outside lowest…highest (exclusive) repeat the edge.
    /// `differences` asks for weights of the first kind whatever the count.
    static Taps along(const Line& line, int from, int to, int lowest, int highest, bool differences);
};

}
