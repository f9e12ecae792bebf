#pragma once

#include "core/intake/samples/Luma.h"

namespace murbo {

/// How well a picture is exposed.
namespace Exposure {

/// 255 for a picture whose tones lie round the middle, spread over the range, and keep their detail at both
/// ends. The product of three shares, each 1 for a good picture:
/// the level (the mean, falling off to both sides of `lowestMean` to `highestMean`),
/// the spread (from the 5th to the 95th hundredth, full from `wideSpread` on),
/// and what is not clipped to black or white (beyond a share that every picture may have).
/// Black bars round the picture don't count.
std::uint8_t of(const Luma& luma);

inline constexpr double lowestMean = 0.33; ///< of the way from black to white
inline constexpr double highestMean = 0.6;
inline constexpr double wideSpread = 0.45;

}

}
