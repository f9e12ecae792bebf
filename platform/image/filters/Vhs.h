#pragma once

#include "platform/image/Filter.h"

#include <cstdint>

namespace murbo::Filters {

/// An old tape: pale, red lying further to the right, noise that jumps and lines that run.
struct Vhs {
    double bleed = 6;       ///< pixels
    double lines = 0;       ///< pixels that the lines have run down
    std::int64_t noise = 0; ///< which of its pictures

    /// The lines lie this far apart, in pixels, half of it dark.
    static constexpr double linePeriod = 6;

    std::optional<Vhs> clamped(const Rect&) const;
    DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const;
};

}
