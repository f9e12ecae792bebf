#include "platform/image/kernels/Taps.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace murbo::Kernels {
namespace {

/// Up to this step eight outputs read at most sixteen samples: what one pair of registers holds.
constexpr std::int64_t narrowStep = Line::one * 7 / 4;

constexpr std::int64_t mostCovered = Line::one * 1024;

struct Stretch {
    std::int64_t start;
    std::int64_t end;
};

/// What an output covers, widened to one sample, and held to what a tiny picture can show.
Stretch covered(const Line& line, int output) {
    const std::int64_t one = line.at(output);
    const std::int64_t other = line.at(output + 1);
    const std::int64_t start = std::min(one, other);
    const std::int64_t length = std::max(one, other) - start;
    if (length >= Line::one && length <= mostCovered) return {start, start + length};
    const std::int64_t middle = start + length / 2;
    const std::int64_t half = (length < Line::one ? Line::one : mostCovered) / 2;
    return {middle - half, middle + half};
}

/// A sample counts by how much of it an output covers, taken as wide as half the output: hard borders would
/// let fine patterns through as moiré.
struct Reach {
    Stretch stretch;
    std::int64_t around;

    explicit Reach(const Stretch& covered)
        : stretch(covered), around(std::max((covered.end - covered.start) / 4, Line::one / 2)) {}

    std::int64_t first() const { return (stretch.start - around - Line::one / 2) >> Line::bits; }
    std::int64_t last() const { return (stretch.end + around + Line::one / 2) >> Line::bits; }

    std::int64_t length(std::int64_t sample) const {
        const std::int64_t middle = sample * Line::one + Line::one / 2;
        return std::max<std::int64_t>(
            std::min(stretch.end, middle + around) - std::max(stretch.start, middle - around), 0);
    }
};

/// The lengths of all samples of an output from `first` on; those beyond the limits count to the edge.
void measure(const Reach& reach, int lowest, int highest, int& first, std::vector<std::int64_t>& lengths) {
    lengths.clear();
    for (std::int64_t sample = reach.first(); sample <= reach.last(); ++sample) {
        const std::int64_t length = reach.length(sample);
        if (length == 0) continue;
        const int held = int(std::clamp<std::int64_t>(sample, lowest, highest - 1));
        if (lengths.empty()) first = held;
        lengths.resize(held - first + 1);
        lengths.back() += length;
    }
}

/// Weights in 1/`whole` from lengths, their sum exact: the heaviest takes what rounding left.
void weigh(const std::vector<std::int64_t>& lengths, int whole, Taps::Output& output,
           std::vector<std::int16_t>& weights) {
    const auto total = double(std::accumulate(lengths.begin(), lengths.end(), std::int64_t(0)));
    output.base = int(std::max_element(lengths.begin(), lengths.end()) - lengths.begin());
    output.weights = int(weights.size());
    int left = whole;
    for (const auto length : lengths) {
        const int weight = int(double(length) / total * whole + 0.5);
        weights.push_back(std::int16_t(std::min(weight, 32767)));
        left -= weight;
    }
    auto& heaviest = weights[output.weights + output.base];
    heaviest = std::int16_t(std::clamp(heaviest + left, 0, 32767));
}

}

Line Line::through(double offset, double slope) {
    constexpr double farthest = double(std::int64_t(1) << 36);
    constexpr double steepest = double(1 << 20);
    return {std::llround(std::clamp(offset, -farthest, farthest) * double(one)),
            std::llround(std::clamp(slope, -steepest, steepest) * double(one))};
}

Taps Taps::along(const Line& line, int from, int to, int lowest, int highest, bool differences) {
    Taps taps;
    taps.from = from;
    taps.low = highest;
    taps.high = lowest;
    taps.narrow = std::abs(line.step) <= narrowStep;
    const int whole = taps.narrow || differences ? 1 << 15 : 1 << 14;
    taps.outputs.reserve(to - from);
    std::vector<std::int64_t> lengths;
    for (int at = from; at < to; ++at) {
        Output output{0, 0, 0, 0};
        measure(Reach(covered(line, at)), lowest, highest, output.first, lengths);
        output.count = int(lengths.size());
        weigh(lengths, whole, output, taps.weights);
        taps.outputs.push_back(output);
        taps.low = std::min(taps.low, output.first);
        taps.high = std::max(taps.high, output.first + output.count);
    }
    return taps;
}

}
