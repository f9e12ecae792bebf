#pragma once

#include "core/model/Stretch.h"

namespace murbo {

/// The two ends of the marked range on the source viewer's strip, which can be dragged. Pure.
namespace RangeHandles {

enum class RangeEnd { none, start, end };

inline constexpr double reach = 6;      ///< points
inline constexpr double shortest = 0.1; ///< seconds that a range is left with

/// The strip: a stretch of the source, and its width in points.
struct StripScale {
    Stretch span;
    double width = 0;

    double x(double time) const;
    double time(double x) const;
};

/// The end at a place across; of two the nearer.
RangeEnd at(const Stretch& range, const StripScale& strip, double x);

/// The range with that end dragged to a time, within the strip and never turned over.
Stretch dragged(const Stretch& range, RangeEnd end, double to, const Stretch& span);

}

}
