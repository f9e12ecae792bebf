#pragma once

namespace murbo {

/// How fast the timeline runs along while something is dragged near one of its sides. Pure.
namespace Autoscroll {

inline constexpr double reach = 24;     ///< points within the side
inline constexpr double fastest = 1400; ///< points a second

/// Points a second for a pointer at `x` in a view so wide: negative toward the beginning, 0 away from both
/// sides, growing up to the side and beyond it.
double speed(double x, double width);

}

}
