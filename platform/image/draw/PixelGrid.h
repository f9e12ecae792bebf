#pragma once

#include "platform/image/PixelRect.h"

namespace murbo {

/// A grid of whole pixels over a picture's extent.
struct PixelGrid {
    PixelRect whole;
    Transform toGrid;

    /// As fine as the picture is seen through `place`, and at most `finest` times as fine as its own pixels.
    static PixelGrid over(const Rect& extent, const Transform& place, double finest);
};

}
