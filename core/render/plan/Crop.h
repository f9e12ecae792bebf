#pragma once

#include "core/model/Framing.h"
#include "core/model/Look.h"
#include "platform/image/Geometry.h"

#include <vector>

namespace murbo {

/// A part of the picture and where it goes in the frame; pixels, origin at the top left of each.
struct Panel {
    Rect source;
    Rect frame;
    bool operator==(const Panel&) const = default;
};

namespace Crop {

/// How a shot lays a picture out in a frame, first panel undermost.
std::vector<Panel> panels(const Shot& shot, double zoom, const Framing& framing, Size picture, Size frame);

}

}
