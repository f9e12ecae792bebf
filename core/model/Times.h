#pragma once

#include <cmath>

namespace murbo {

/// The tolerances of the system, in seconds.
namespace Times {

/// Two times this near are one place: people and models aim by hand or with rounded numbers.
inline constexpr double samePlace = 0.001;

/// A cut is never made shorter: about three frames, the least that can be seen.
inline constexpr double shortestCut = 0.1;

/// Stretches shorter than this come of rounding and count as none when lists of ranges are built.
inline constexpr double noStretch = 0.0005;

/// What a time is meant to: a 600th of a second, on which the frames of nearly all rates lie. Times are
/// written with three decimals, and some files round the times of their frames likewise.
inline constexpr double tick = 1.0 / 600;

/// The nearest tick. What lies half-way, but for rounding, always goes up.
inline double onTick(double time) {
    return std::floor(time * 600 + 0.500001) / 600;
}

}

}
