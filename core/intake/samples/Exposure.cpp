#include "core/intake/samples/Exposure.h"

#include <numeric>

namespace murbo::Exposure {
namespace {

// As far as codecs let black and white stray.
constexpr int blackest = 6;
constexpr int whitest = 250;
constexpr int barLevel = 12; ///< the picture rings into its bars
// Lamps and deep shadows are in every picture.
constexpr double harmlessWhites = 0.02;
constexpr double harmlessBlacks = 0.08;
// A washed-out sky hurts more than a black corner: the share that takes a half.
constexpr double halvingWhites = 0.2;
constexpr double halvingBlacks = 0.35;
constexpr double minOfSpread = 0.25; ///< what a picture of one single tone keeps

using Histogram = std::array<std::uint32_t, 256>;

/// Rows and columns from the first to one after the last.
struct Area {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;
};

bool isBlackRow(const Luma& luma, int y) {
    return std::all_of(luma.row(y), luma.row(y) + luma.width, [](int level) { return level <= barLevel; });
}

bool isBlackColumn(const Luma& luma, int x, const Area& area) {
    for (int y = area.top; y < area.bottom; ++y)
        if (luma.row(y)[x] > barLevel) return false;
    return true;
}

// A picture that is black throughout is left whole.
Area withoutBars(const Luma& luma) {
    const Area whole{0, luma.width, 0, luma.height};
    Area area = whole;
    while (area.top < area.bottom && isBlackRow(luma, area.top)) ++area.top;
    if (area.top == area.bottom) return whole;
    while (isBlackRow(luma, area.bottom - 1)) --area.bottom;
    while (isBlackColumn(luma, area.left, area)) ++area.left;
    while (isBlackColumn(luma, area.right - 1, area)) --area.right;
    return area;
}

Histogram histogram(const Luma& luma, const Area& area) {
    Histogram counts{};
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) ++counts[luma.row(y)[x]];
    return counts;
}

double share(const Histogram& counts, int from, int to, double all) {
    return std::accumulate(counts.begin() + from, counts.begin() + to + 1, 0.0) / all;
}

double mean(const Histogram& counts, double all) {
    double sum = 0;
    for (std::size_t level = 0; level < counts.size(); ++level)
        sum += static_cast<double>(level) * counts[level];
    return sum / all / 255;
}

/// The level below which that share of the picture lies, 0 to 1.
double quantile(const Histogram& counts, double wanted, double all) {
    double below = 0;
    for (std::size_t level = 0; level < counts.size(); ++level)
        if ((below += counts[level]) >= wanted * all) return static_cast<double>(level) / 255;
    return 1;
}

double levelShare(double mean) {
    if (mean < lowestMean) return std::pow(mean / lowestMean, 1.5);
    if (mean > highestMean) return std::pow((1 - mean) / (1 - highestMean), 1.5);
    return 1;
}

double spreadShare(double spread) {
    return minOfSpread + (1 - minOfSpread) * std::min(spread / wideSpread, 1.0);
}

double unclippedShare(double clipped, double harmless, double halving) {
    return std::exp2(-std::max(clipped - harmless, 0.0) / halving);
}

}

std::uint8_t of(const Luma& luma) {
    if (luma.empty()) return 0;
    const Histogram counts = histogram(luma, withoutBars(luma));
    const double all = std::accumulate(counts.begin(), counts.end(), 0.0);
    const double spread = quantile(counts, 0.95, all) - quantile(counts, 0.05, all);
    const double good = levelShare(mean(counts, all)) * spreadShare(spread) *
                        unclippedShare(share(counts, 0, blackest, all), harmlessBlacks, halvingBlacks) *
                        unclippedShare(share(counts, whitest, 255, all), harmlessWhites, halvingWhites);
    return static_cast<std::uint8_t>(std::lround(255 * std::clamp(good, 0.0, 1.0)));
}

}
