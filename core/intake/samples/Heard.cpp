#include "core/intake/samples/Heard.h"

#include "core/intake/samples/LevelRange.h"

namespace murbo {
namespace {

constexpr double longestGap = 0.5;      // seconds that a loud stretch may pause
constexpr double shortestStretch = 0.3; // seconds; less is a knock

/// Times come in tenths, which are not exact in binary.
constexpr double rounding = 1e-6;

int median(std::vector<std::uint8_t> levels) {
    if (levels.empty()) return 0;
    const auto middle = levels.begin() + static_cast<std::ptrdiff_t>(levels.size() / 2);
    std::nth_element(levels.begin(), middle, levels.end());
    return *middle;
}

}

int Heard::usual() const {
    return median(levels);
}

int Heard::usual(const Stretch& within) const {
    const auto [from, to] = LevelRange::of(within, rate, levels.size());
    const auto begin = levels.begin();
    return median({begin + static_cast<std::ptrdiff_t>(from), begin + static_cast<std::ptrdiff_t>(to)});
}

std::vector<Heard::Peak> Heard::peaks(const Stretch& within) const {
    const auto [from, to] = LevelRange::of(within, rate, levels.size());
    std::vector<Peak> peaks;
    for (std::size_t at = from; at < to; ++at) peaks.push_back({static_cast<double>(at) / rate, levels[at]});
    std::stable_sort(peaks.begin(), peaks.end(),
                     [](const Peak& a, const Peak& b) { return a.level > b.level; });
    return peaks;
}

std::vector<Stretch> Heard::loudStretches(const Stretch& within, int usual) const {
    const auto [from, to] = LevelRange::of(within, rate, levels.size());
    std::vector<Stretch> stretches;
    for (std::size_t at = from; at < to; ++at) {
        const double start = within.from + static_cast<double>(at - from) / rate;
        if (start >= within.to) break;
        if (levels[at] < usual + louder) continue;
        const double end = std::min(start + 1.0 / rate, within.to);
        if (!stretches.empty() && start - stretches.back().to <= longestGap + rounding)
            stretches.back().to = end;
        else
            stretches.push_back({start, end});
    }
    std::erase_if(stretches, [](const Stretch& s) { return s.length() < shortestStretch - rounding; });
    return stretches;
}

bool Heard::isVoiced(double time) const {
    return std::any_of(voiced.begin(), voiced.end(),
                       [&](const Stretch& s) { return s.from <= time && time < s.to; });
}

bool Heard::isLoud(double time, int usual) const {
    const double index = time * rate;
    if (!(index >= 0) || index >= static_cast<double>(levels.size())) return false;
    return levels[static_cast<std::size_t>(index)] >= usual + louder;
}

}
