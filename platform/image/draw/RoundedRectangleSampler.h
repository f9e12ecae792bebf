#pragma once

#include "platform/image/ImageNode.h"
#include "platform/image/Tile.h"

#include <cstdint>

namespace murbo {

/// A rectangle with round corners, or the line along its edge, seen through any transform: how much of a
/// pixel it covers follows from the distance of the pixel's middle to the edge. A pixel's coverage depends on
/// its place alone.
class RoundedRectangleSampler {
public:
    RoundedRectangleSampler(const ImageNode::RoundedRectangle& shape, const Transform& place);

    /// Draws every pixel of the tile: clear outside, `pixel` (premultiplied) inside.
    void fill(const Tile& tile) const;

    /// How much of a pixel is covered, 0 to 255.
    int coverage(int x, int y) const;

private:
    /// A signed distance to the edge, negative inside, and the way in which it grows; in the shape's space.
    struct Distance {
        double length;
        Point way;
    };
    Distance distance(Point from) const;
    Point local(double x, double y) const;
    void fill(int y, int from, int to, std::uint8_t* pixels) const;

    Transform back; ///< from the canvas to the shape's space, with the shape's middle at the origin
    Point core;     ///< half of the rectangle within the corners' centres
    double radius;
    double reach;     ///< half the line's width; negative where the shape is filled
    double thickness; ///< of a filled shape, at its thinnest
    double margin;    ///< local distance past which a pixel lies wholly on one side
    double step;      ///< local way from pixel to pixel along a row
    std::uint32_t pixel;
};

}
