#pragma once

#include <cstdint>
#include <vector>

namespace murbo {

namespace Distance {

/// A coverage mask, row by row, grown by `radius` pixels on all sides, with smooth edges.
/// Exact Euclidean distances in linear time: Felzenszwalb and Huttenlocher, "Distance Transforms of Sampled
/// Functions", 2012.
std::vector<std::uint8_t> grown(const std::vector<std::uint8_t>& mask, int width, int height, double radius);

}

}
