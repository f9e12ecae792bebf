#pragma once

#include "platform/image/Filter.h"

namespace murbo::Filters {

/// Darker towards the corners of the picture.
struct Vignette {
    double intensity = 0;
    double radius = 0; ///< 1 leaves about the middle half bright

    std::optional<Vignette> clamped(const Rect& body) const;
    ChangeRow row(const Rect& body, const PixelRect& bounds) const;
};

}
