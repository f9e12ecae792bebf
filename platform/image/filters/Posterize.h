#pragma once

#include "platform/image/Filter.h"

namespace murbo::Filters {

/// Each channel in `levels` even steps.
struct Posterize {
    int levels = 6;

    std::optional<Posterize> clamped(const Rect&) const;
    bool byPixel() const { return true; }
    ChangeRow row(const Rect&, const PixelRect&) const;
};

}
