#include "app/desktop/timeline/PartedRow.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace murbo {
namespace {

constexpr double nothing = 1e-9;

std::vector<const TimelineBlock*> cutsOf(const TimelineLayout& layout) {
    std::vector<const TimelineBlock*> cuts;
    for (const auto& block : layout.blocks)
        if (block.pick.kind == Pick::Kind::cut) cuts.push_back(&block);
    return cuts;
}

std::size_t indexOf(const std::vector<const TimelineBlock*>& cuts, const std::optional<UUID>& id) {
    const auto found = std::ranges::find_if(cuts, [&](const auto* cut) { return cut->pick.id == id; });
    return static_cast<std::size_t>(found - cuts.begin());
}

/// How far each cut goes aside: those between the old place and the new one, by the carried cut's length.
std::map<UUID, double> shifts(const TimelineLayout& layout, const PartedRow::Landing& landing) {
    const auto cuts = cutsOf(layout);
    const auto at = indexOf(cuts, landing.cut);
    std::map<UUID, double> found;
    for (std::size_t other = landing.place; !landing.cut && other < cuts.size(); ++other)
        found[cuts[other]->pick.id] = landing.length;
    if (at == cuts.size()) return found;
    for (std::size_t other = landing.place; other < at; ++other)
        found[cuts[other]->pick.id] = cuts[at]->length();
    for (std::size_t other = at + 1; other < std::min(landing.place, cuts.size()); ++other)
        found[cuts[other]->pick.id] = -cuts[at]->length();
    return found;
}

}

double PartedRow::share(double now) const {
    const double gone = std::clamp((now - begun) / moment, 0.0, 1.0);
    return 1 - std::pow(1 - gone, 3);
}

std::map<UUID, double> PartedRow::aside(double now) const {
    std::map<UUID, double> found;
    for (const auto& [id, aim] : aims) {
        const double by = aim.from + (aim.to - aim.from) * share(now);
        if (std::abs(by) > nothing) found[id] = by;
    }
    return found;
}

void PartedRow::aim(const TimelineLayout& layout, const std::optional<Landing>& landing, double now) {
    if (landing == aimed) return;
    const auto before = aside(now);
    aims.clear();
    for (const auto& [id, by] : before) aims[id].from = by;
    if (landing)
        for (const auto& [id, by] : shifts(layout, *landing)) aims[id].to = by;
    aimed = landing;
    begun = now;
}

void PartedRow::settle() {
    aims.clear();
    aimed.reset();
}

std::optional<Stretch> PartedRow::room(const TimelineLayout& layout, const Landing& landing) {
    const auto cuts = cutsOf(layout);
    if (!landing.cut) {
        const bool last = landing.place >= cuts.size();
        const double from = !last ? cuts[landing.place]->from : cuts.empty() ? 0 : cuts.back()->to;
        return Stretch{from, from + landing.length};
    }
    const auto at = indexOf(cuts, landing.cut);
    if (at == cuts.size()) return {};
    const double length = cuts[at]->length();
    if (landing.place >= cuts.size()) return Stretch{cuts.back()->to - length, cuts.back()->to};
    const double seam = cuts[landing.place]->from;
    const double from = landing.place > at ? seam - length : seam;
    return Stretch{from, from + length};
}

}
