#include "app/desktop/timeline/BlockWalk.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

using Blocks = std::vector<const TimelineBlock*>;

Blocks inRow(const TimelineLayout& layout, TimelineRow row) {
    Blocks found;
    for (const auto& block : layout.blocks)
        if (block.row == row && block.pickable) found.push_back(&block);
    return found;
}

/// Seconds from a time to a block; 0 within it.
double distance(const TimelineBlock& block, double time) {
    return std::max({block.from - time, time - block.to, 0.0});
}

const TimelineBlock* nearest(const Blocks& blocks, double time) {
    const auto found = std::ranges::min_element(
        blocks, {}, [time](const TimelineBlock* block) { return distance(*block, time); });
    return found == blocks.end() ? nullptr : *found;
}

const TimelineBlock* inOtherRow(const TimelineLayout& layout, const TimelineBlock& from, bool below) {
    std::vector<TimelineRow> rows;
    for (const auto& track : layout.tracks) rows.push_back(track.row);
    if (!below) std::ranges::reverse(rows);
    auto row = std::ranges::find(rows, from.row);
    while (row != rows.end() && ++row != rows.end())
        if (const auto* found = nearest(inRow(layout, *row), (from.from + from.to) / 2)) return found;
    return nullptr;
}

}

const TimelineBlock* BlockWalk::from(const TimelineLayout& layout, const std::optional<Pick>& picked,
                                     double time, Way way) {
    const auto* start = picked ? layout.find(*picked) : nullptr;
    const auto row = inRow(layout, start ? start->row : TimelineRow::picture);
    if (row.empty()) return nullptr;
    if (way == Way::first) return row.front();
    if (way == Way::last) return row.back();
    if (!start) return nearest(row, time);
    if (way == Way::above || way == Way::below) return inOtherRow(layout, *start, way == Way::below);
    const auto at = std::ranges::find(row, start);
    if (at == row.end()) return nullptr;
    if (way == Way::previous) return at == row.begin() ? nullptr : *(at - 1);
    return at + 1 == row.end() ? nullptr : *(at + 1);
}

}
