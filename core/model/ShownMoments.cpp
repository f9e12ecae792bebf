#include "core/model/ShownMoments.h"

#include "core/model/VideoTime.h"

#include <algorithm>
#include <set>

namespace murbo {

namespace {

/// A moment of a source from which on a cut shows it, or no longer does.
struct CutEdge {
    double at = 0;
    std::size_t cut = 0;
    bool begins = false;
};

std::map<UUID, std::vector<CutEdge>> edges(const List<Cut>& cuts) {
    std::map<UUID, std::vector<CutEdge>> sources;
    for (std::size_t index = 0; index < cuts.size(); ++index) {
        const auto [from, to] = VideoTime::shown(cuts[index]);
        if (!(from < to)) continue;
        auto& edges = sources[cuts[index].source];
        edges.push_back({from, index, true});
        edges.push_back({to, index, false});
    }
    for (auto& [_, edges] : sources) std::ranges::sort(edges, {}, &CutEdge::at);
    return sources;
}

}

ShownMoments::ShownMoments(const List<Cut>& cuts) {
    const auto starts = VideoTime::starts(cuts);
    for (const auto& [source, edges] : edges(cuts)) {
        auto& spans = sources[source];
        std::set<std::size_t> showing;
        for (std::size_t index = 0; index < edges.size(); ++index) {
            const auto& edge = edges[index];
            if (edge.begins)
                showing.insert(edge.cut);
            else
                showing.erase(edge.cut);
            if (index + 1 < edges.size() && edges[index + 1].at == edge.at) continue;
            ShownSpan span{.from = edge.at, .shown = !showing.empty()};
            if (span.shown) span.cut = cuts[*showing.begin()].start;
            if (span.shown) span.start = starts[*showing.begin()];
            spans.push_back(span);
        }
    }
}

std::optional<double> ShownMoments::on(const UUID& source, double at) const {
    const auto found = sources.find(source);
    if (found == sources.end()) return std::nullopt;
    const auto& spans = found->second;
    const auto after =
        std::ranges::partition_point(spans, [&](const ShownSpan& span) { return span.from <= at; });
    if (after == spans.begin() || !std::prev(after)->shown) return std::nullopt;
    return std::prev(after)->start + std::max(at - std::prev(after)->cut, 0.0);
}

}
