#pragma once

#include "platform/image/kernels/Line.h"

#include <cstdint>
#include <vector>

namespace murbo::Kernels {

/// Which samples make each output along one axis, and how much of each. An output averages the stretch of
/// source that it covers, and never less than one sample: that is bilinear interpolation when enlarging, and
/// an average with soft borders when scaling down.
struct Taps {
    /// How an output is summed up.
    enum class Sum {
        /// The first sample plus the others' differences from it, each times its weight in 1/2^15 and
        /// rounded: a flat area stays exactly what it is.
        differences,
        /// The samples times weights in 1/2^14, summed and rounded once. Weights stand in eights, filled
        /// up with zeros.
        products
    };
    struct Output {
        int first;   ///< the first sample
        int count;   ///< samples, at least 1
        int weights; ///< where its weights start, the first sample's included
    };

    Sum sum = Sum::differences;
    int from = 0; ///< the output that `outputs` starts with
    int low = 0;  ///< samples read: from `low` to `high`, exclusive
    int high = 0;
    int maxCount = 0; ///< the largest count
    std::vector<Output> outputs;
    std::vector<std::int16_t> weights;

    /// `outputs` from…to of an axis where the edges of output i lie at line.at(i) and line.at(i + 1), in
    /// samples. Samples outside lowest…highest (exclusive) repeat the edge.
    static Taps along(const Line& line, int from, int to, int lowest, int highest, Sum sum);
};

}
