#pragma once

#include "platform/image/Filter.h"

namespace murbo::Filters {

/// Squares of one colour each, one of them round `middle`.
struct Pixel {
    double size = 1; ///< pixels
    Point middle;

    std::optional<Pixel> clamped(const Rect& body) const;
    double reach() const { return size; }
    DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const;
};

}
