#pragma once

#include "core/model/Entrance.h"
#include "core/model/Move.h"
#include "core/render/plan/Movement.h"
#include "platform/image/Geometry.h"

#include <cstdint>

namespace murbo {

/// How shots, captions and overlays move.
namespace Motion {

/// An entrance at `progress` (clamped to 0…1) in a frame of that size.
Movement enter(Entrance entrance, double progress, Size frame);

/// Where a move has brought its thing at `progress` (clamped to 0…1).
Placement placement(const Move& move, double progress);

/// The number of the step that `elapsed` seconds fall in, at `rate` steps a second; rounded towards 0, and 0
/// where it is no number that can be counted.
std::int64_t step(double elapsed, double rate);

/// A number in 0…1 that depends on `seed` and `step` alone, so that a frame shakes the same whenever it is
/// drawn.
double noise(std::uint64_t seed, std::int64_t step);

}

}
