#pragma once

#include "platform/image/Geometry.h"

namespace murbo {

/// A part of the picture and where it goes in the frame; pixels, origin at the top left of each.
struct Panel {
    Rect source;
    Rect frame;
    bool operator==(const Panel&) const = default;
};

}
