#pragma once

#include "app/desktop/drawn/DrawList.h"
#include "app/desktop/timeline/TimelineColours.h"
#include "app/desktop/timeline/TimelineLayout.h"

#include <map>
#include <optional>
#include <vector>

namespace murbo {

/// The part of a timeline that a window shows.
struct TimelineSpan {
    double from = 0;   ///< seconds at the left edge
    double scale = 20; ///< points a second
    double width = 0;  ///< points

    double x(double time) const { return (time - from) * scale; }
    double time(double x) const { return from + x / scale; }
    double to() const { return time(width); }
    bool operator==(const TimelineSpan&) const = default;
};

/// Turns what lies on a timeline into what is drawn. Pure: the same picture for the same arguments.
namespace TimelineScene {

/// Cuts that make room for one that is carried.
struct Parted {
    std::map<UUID, double> aside;       ///< by how many seconds they stand beside their places
    std::optional<UUID> carried;        ///< is not drawn in its place: it goes with the hand
    std::optional<Stretch> room;        ///< where it would land, in video seconds
    std::optional<TimelineBlock> ghost; ///< it, where the hand has it: over all others
};

/// What is on the rows.
DrawList rows(const TimelineLayout& layout, const TimelineSpan& span, const std::vector<Pick>& picks,
              const TimelineColours& colours, const Parted& parted = {});

/// The footage that a cut leaves unused at either side, while its end is dragged.
DrawList freeFootage(const TimelineLayout& layout, const TimelineSpan& span, const TimelineBlock& cut,
                     const TimelineColours& colours);

/// The times above them.
DrawList ruler(const TimelineSpan& span, const TimelineColours& colours);

/// Seconds from one time on the ruler to the next, so that they stand at least 64 points apart.
double rulerStep(double scale);

}

}
