#pragma once

#include "core/model/Move.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// The curves that everything moves by.
namespace Ease {
/// `progress` (0 to 1) along the ease of that name: "linear", "snap"; any other is a smoothstep.
double named(const std::optional<std::string>& name, double progress);
}

namespace Motion {

/// How far a thing is from rest while it comes in.
struct Offset {
    double x = 0; ///< pixels
    double y = 0; ///< pixels; captions count it upward, overlays downward
    double scale = 1;
    double rotation = 0; ///< degrees
    double opacity = 1;
    bool operator==(const Offset&) const = default;
};

/// The entrance of that name at `progress` (clamped to 0…1) in a frame of that size. Unknown names rest.
Offset enter(std::string_view name, double progress, double width, double height);

/// Falls to the ground and bounces three times, 0 to 1 (the usual four arcs; Penner 2001).
double bounce(double progress);

/// Where a move has brought its thing at `progress` (clamped to 0…1).
Placement placement(const Move& move, double progress);

/// The number of the step that `elapsed` seconds fall in, at `rate` steps a second; rounded towards 0, and 0
/// where it is no number that can be counted.
std::int64_t step(double elapsed, double rate);

/// A number in 0…1 that depends on `seed` and `step` alone, so that a frame shakes the same whenever it is
/// drawn (SplitMix64's finish; Steele, Lea, Flood 2014).
double noise(std::uint64_t seed, std::int64_t step);

}

}
