#pragma once

#include "platform/image/PixelRect.h"

#include <cstdint>

namespace murbo {

/// The smooth edges of a rectangle under a transform: how much of each pixel lies inside, from the pixel's
/// distance to each side. In whole numbers, by absolute position, as all drawing.
class Edges {
public:
    /// `bare` is a rectangle beyond which there is nothing anyway: it only says where to look.
    Edges(const Rect& rect, const Transform& transform, bool bare = false);

    /// Fades `to − from` pixels of row y, of which the first is at x = from, by how much of each is inside.
    void cover(int y, int from, int to, std::uint8_t* pixels) const;

    /// The columns of `area` that the rectangle reaches.
    PixelRect reached(const PixelRect& area) const;
    /// Whether it reaches other columns in each row.
    bool slanted() const { return !upright; }
    bool bare() const { return nothingBeyond; }

    /// Pixels of `bounds` that are wholly inside: all of an upright rectangle's; of a turned one's either all
    /// of `bounds` or none.
    PixelRect solid(const PixelRect& bounds) const;

private:
    struct Side {
        std::int64_t start = 0; ///< distance inward in 1/2^24 pixel, at the middle of pixel 0, 0
        std::int64_t x = 0;     ///< more of it from pixel to pixel
        std::int64_t y = 0;

        std::int64_t at(int column, int row) const { return start + column * x + row * y; }
    };
    struct ColumnRange {
        int from;
        int to;
    };

    static Side side(const Transform& inverse, bool across, double edge, bool before);
    static ColumnRange above(const Side& side, int row, std::int64_t min, ColumnRange range);
    ColumnRange reaching(int row, std::int64_t min, ColumnRange range) const;
    bool full(int column, int row) const;
    int coverage(int column, int row) const;

    Side sides[4];
    bool upright;
    bool nothingBeyond;
};

}
