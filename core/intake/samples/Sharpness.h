#pragma once

#include "core/intake/samples/Luma.h"

namespace murbo {

/// How sharp a picture is.
namespace Sharpness {

/// The radius of a picture's strongest edges: the sigma, in its pixels, of the blur that a step of brightness
/// has gone through. Contrast cancels out, so a dark picture may be as sharp as a bright one, and what grain
/// adds is taken off. A picture smeared in one direction only is as soft as that makes it on the whole. At
/// most `largestRadius`, which is also said of a picture without an edge.
double edgeRadius(const Luma& luma);

/// 255 for edges as hard as can be, 128 at a radius that people begin to call soft, near 0 for a picture
/// far out of focus: 255 / (1 + (radius / softRadius)^2).
std::uint8_t of(const Luma& luma);

/// In pixels of a picture some 640 wide: three pixels of one 1920 wide.
inline constexpr double softRadius = 0.9;
inline constexpr double largestRadius = 12;

}

}
