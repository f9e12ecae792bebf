#pragma once

#include "platform/image/Filter.h"

namespace murbo::Filters {

/// Printed comic: few colours, dots in the shades, ink along the edges.
struct Comic {
    std::optional<Comic> clamped(const Rect&) const { return *this; }
    DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const;
};

}
