#include "platform/image/kernels/Taps.h"

#include <algorithm>
#include <cmath>

namespace murbo::Kernels {
namespace {

/// Up to this step eight outputs read at most sixteen samples: what one pair of registers holds.
constexpr std::int64_t narrowStep = Line::one * 7 / 4;

struct Stretch {
    std::int64_t start;
    std::int64_t end;
};

/// What an output covers, widened to one sample.
Stretch covered(const Line& line, int output) {
    const std::int64_t one = line.at(output);
    const std::int64_t other = line.at(output + 1);
    const std::int64_t start = std::min(one, other);
    const std::int64_t length = std::max(one, other) - start;
    if (length >= Line::one) return {start, start + length};
    const std::int64_t middle = start + length / 2;
    return {middle - Line::one / 2, middle + Line::one / 2};
}

std::int64_t floorSample(std::int64_t position) {
    return position >> Line::bits;
}

/// Weights in 1/`whole` from lengths, their sum exact: the heaviest takes what rounding left.
void weigh(const std::vector<std::int64_t>& lengths, std::int64_t total, int whole, Taps::Output& output,
           std::vector<std::int16_t>& weights) {
    output.base = int(std::max_element(lengths.begin(), lengths.end()) - lengths.begin());
    output.weights = int(weights.size());
    int left = whole;
    for (const auto length : lengths) {
        const int weight = int((double(length) / double(total)) * whole + 0.5);
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
        const Stretch stretch = covered(line, at);
        const int first = int(std::clamp<std::int64_t>(floorSample(stretch.start), lowest, highest - 1));
        const int last = int(std::clamp<std::int64_t>(floorSample(stretch.end - 1), lowest, highest - 1));
        lengths.clear();
        for (int sample = first; sample <= last; ++sample) {
            // The edge samples stand for all that lies beyond them.
            const auto start = sample == lowest ? stretch.start : std::max(stretch.start, sample * Line::one);
            const auto end =
                sample == highest - 1 ? stretch.end : std::min(stretch.end, (sample + 1) * Line::one);
            lengths.push_back(end - start);
        }
        Output output{first, int(lengths.size()), 0, 0};
        weigh(lengths, stretch.end - stretch.start, whole, output, taps.weights);
        taps.outputs.push_back(output);
        taps.low = std::min(taps.low, first);
        taps.high = std::max(taps.high, last + 1);
    }
    return taps;
}

}
