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
/// an average with soft borders when scaling down.
struct Taps {
    /// How an output is summed up.
    enum class Sum {
        /// The first sample plus the others' differences from it, each times its weight in 1/2^15 and
        /// rounded: a flat
        /// area stays exactly what it is.
        differences,
        /// The samples times weights in 1/2^14, summed and rounded once. Weights stand in eights, zeros
        /// behind.
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
    int most = 0; ///< the largest count
    std::vector<Output> outputs;
    std::vector<std::int16_t> weights;

    /// `outputs` from…to of an axis where the edges of output i lie at line.at(i) and line.at(i + 1), in
    /// samples. Samples outside lowest…highest (exclusive) repeat the edge.
    static Taps along(const Line& line, int from, int to, int lowest, int highest, Sum sum);
};

/// Taps along a row, laid out for the kernels.
struct Columns {
    /// Outputs that are made at once: eight samples, or two pixels of four values.
    struct alignas(64) Group {
        std::uint8_t bytes[16]; ///< where the bytes of the first samples lie from `first` on
        std::int16_t second[8]; ///< weights of the second samples
        std::int16_t third[8];
        std::int32_t first[2]; ///< a sample: the earliest of all, or the first of each of two pixels
    };

    Taps taps;
    int values = 1;            ///< a sample: 1, or 4 for pixels
    bool pairs = true;         ///< no third sample counts
    bool near = true;          ///< each group of samples lies within eight
    std::vector<Group> groups; ///< for sums of differences

    Columns() = default;
    /// `line` and the rest as for Taps; few samples an output are summed by differences, many by products.
    Columns(const Line& line, int from, int to, int lowest, int highest, int values);

    /// Outputs that a group makes.
    int together() const { return values == 1 ? 8 : 2; }

private:
    void addGroup(const Taps::Output* outputs, int count);
};

}
