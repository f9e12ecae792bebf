#include "platform/image/kernels/Taps.h"

#include <algorithm>
#include <cmath>

namespace murbo::Kernels {
namespace {

/// Beyond this a picture is a speck, whatever is averaged.
constexpr std::int64_t maxCovered = Line::one * 1024;

struct Coverage {
    std::int64_t start;
    std::int64_t end;
};

/// What an output covers, widened to one sample, and limited to what a tiny picture can show.
Coverage covered(const Line& line, int output) {
    const std::int64_t one = line.at(output);
    const std::int64_t other = line.at(output + 1);
    const std::int64_t start = std::min(one, other);
    const std::int64_t length = std::max(one, other) - start;
    if (length >= Line::one && length <= maxCovered) return {start, start + length};
    const std::int64_t middle = start + length / 2;
    const std::int64_t half = (length < Line::one ? Line::one : maxCovered) / 2;
    return {middle - half, middle + half};
}

/// A sample counts by how much of it an output covers, taken as wide as half the output: hard borders would
/// let fine patterns through as moiré.
struct Reach {
    Coverage stretch;
    std::int64_t around;

    explicit Reach(const Coverage& covered)
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
std::int64_t measure(const Reach& reach, int lowest, int highest, int& first,
                     std::vector<std::int64_t>& lengths) {
    lengths.clear();
    std::int64_t total = 0;
    for (std::int64_t sample = reach.first(); sample <= reach.last(); ++sample) {
        const std::int64_t length = reach.length(sample);
        if (length == 0) continue;
        const int nearest = int(std::clamp<std::int64_t>(sample, lowest, highest - 1));
        if (lengths.empty()) first = nearest;
        lengths.resize(nearest - first + 1);
        lengths.back() += length;
        total += length;
    }
    return total;
}

/// Weights in 1/`whole` from lengths, their sum exact: the heaviest takes what rounding left.
void weigh(const std::vector<std::int64_t>& lengths, std::int64_t total, int whole,
           std::vector<std::int16_t>& weights) {
    const double share = double(whole) / double(total);
    const auto start = weights.size();
    int left = whole;
    for (const auto length : lengths) {
        const int weight = std::min(int(double(length) * share + 0.5), 32767);
        weights.push_back(std::int16_t(weight));
        left -= weight;
    }
    const auto heaviest = std::max_element(weights.begin() + std::ptrdiff_t(start), weights.end());
    *heaviest = std::int16_t(std::min(*heaviest + left, 32767));
}

}

Taps Taps::along(const Line& line, int from, int to, int lowest, int highest, Sum sum) {
    Taps taps;
    taps.sum = sum;
    taps.from = from;
    taps.low = highest;
    taps.high = lowest;
    taps.outputs.reserve(to - from);
    std::vector<std::int64_t> lengths;
    for (int at = from; at < to; ++at) {
        Output output{0, 0, int(taps.weights.size())};
        const auto total = measure(Reach(covered(line, at)), lowest, highest, output.first, lengths);
        output.count = int(lengths.size());
        weigh(lengths, total, sum == Sum::differences ? 1 << 15 : 1 << 14, taps.weights);
        if (sum == Sum::products) taps.weights.resize((taps.weights.size() + 7) / 8 * 8);
        taps.outputs.push_back(output);
        taps.low = std::min(taps.low, output.first);
        taps.high = std::max(taps.high, output.first + output.count);
        taps.maxCount = std::max(taps.maxCount, output.count);
    }
    return taps;
}

}
