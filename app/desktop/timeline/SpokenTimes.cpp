#include "app/desktop/timeline/SpokenTimes.h"

#include "core/model/Times.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr double slack = 0.08; ///< seconds: a cut that near to where a line ends cuts no word

}

bool SpokenTimes::goesOn(const Cut& before, const Cut& after) {
    return before.source == after.source && std::abs(before.end - after.start) < Times::samePlace;
}

const SpokenTimes::SpokenSource& SpokenTimes::of(const Project& project, const UUID& source) {
    const auto& lines = project.transcript(source).lines;
    const auto [entry, fresh] = sources.try_emplace(source);
    auto& kept = entry->second;
    if (!fresh && kept.lines.same(lines)) return kept;
    kept = {lines, {}, {}};
    for (const auto& line : lines)
        if (!line.isGone()) kept.spoken.push_back({line.start, line.end});
    std::ranges::stable_sort(kept.spoken, {}, &Stretch::from);
    for (const auto& one : kept.spoken)
        kept.reached.push_back(kept.reached.empty() ? one.to : std::max(kept.reached.back(), one.to));
    return kept;
}

std::optional<Stretch> SpokenTimes::around(const Project& project, const UUID& source, double time) {
    const auto& spoken = of(project, source).spoken;
    const auto after = std::ranges::upper_bound(spoken, time - slack, {}, &Stretch::from);
    // Lines follow one another; a few may overlap.
    const auto first = after - std::min<std::ptrdiff_t>(after - spoken.begin(), 4);
    const auto found =
        std::find_if(first, after, [time](const Stretch& line) { return time < line.to - slack; });
    return found == after ? std::nullopt : std::optional(*found);
}

std::vector<Stretch> SpokenTimes::quiet(const Project& project, const UUID& source, Stretch range,
                                        double least) {
    const auto& kept = of(project, source);
    std::vector<Stretch> stretches;
    if (kept.lines.empty()) return stretches;
    double from = range.from;
    const auto first = std::ranges::upper_bound(kept.reached, range.from) - kept.reached.begin();
    for (auto line = kept.spoken.begin() + first; line != kept.spoken.end() && line->from < range.to;
         ++line) {
        if (line->to <= range.from) continue;
        if (line->from - from >= least) stretches.push_back({from, line->from});
        from = std::max(from, line->to);
    }
    if (range.to - from >= least) stretches.push_back({from, range.to});
    return stretches;
}

}
