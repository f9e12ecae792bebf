#pragma once

namespace murbo {

/// The three tolerances of the system, in seconds.
namespace Times {

/// Two times this near are one place: people and models aim by hand or with rounded numbers.
inline constexpr double samePlace = 0.001;

/// A cut is never made shorter: about three frames, the least that can be seen.
inline constexpr double shortestCut = 0.1;

/// Stretches shorter than this come of rounding and count as none when lists of ranges are built.
inline constexpr double noStretch = 0.0005;

}

}
