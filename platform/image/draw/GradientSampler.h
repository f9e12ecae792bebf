#pragma once

#include "platform/image/ImageNode.h"
#include "platform/image/Tile.h"

#include <array>
#include <cstdint>
#include <vector>

namespace murbo {

/// A colour that goes evenly into another, seen through any transform.
class GradientSampler {
public:
    GradientSampler(const ImageNode::Gradient& gradient, const Transform& place);

    /// Draws every pixel of the tile.
    void fill(const Tile& tile) const;

private:
    std::uint32_t pixel(double share) const;
    void fillSlanted(int y, const Tile& tile) const;

    std::array<double, 4> first; ///< premultiplied blue, green, red, alpha
    std::array<double, 4> last;
    double start;  ///< the way from the first colour to the last at the canvas' origin
    double across; ///< more of it from pixel to pixel
    double down;
    std::vector<std::uint32_t> steps; ///< of the way, where it is not the same all along a row
};

}
