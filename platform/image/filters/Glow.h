#pragma once

#include "platform/image/Filter.h"

namespace murbo::Filters {

/// The picture's light spreading over its surroundings.
struct Glow {
    double radius = 0;    ///< pixels
    double intensity = 0; ///< 0 to 1

    std::optional<Glow> clamped(const Rect& body) const;
    double reach() const;
    DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const;
};

}
