#pragma once

#include "core/model/Framing.h"
#include "core/model/Shot.h"
#include "core/render/plan/Panel.h"
#include "platform/image/Geometry.h"

#include <optional>
#include <vector>

namespace murbo {

namespace Crop {

/// How a shot lays a picture out in a frame, first panel undermost.
std::vector<Panel> panels(const Shot& shot, double zoom, const Framing& framing, Size picture, Size frame);

/// A box in pixels of a picture.
Rect scaled(const Box& box, Size picture);

/// The largest crop of the target's shape in an area, made smaller by a zoom above 1; `focus` (0 to 1, else
/// the middle) says where it lies across.
Rect within(const Rect& area, Size target, double zoom, std::optional<double> focus);

/// The same of the face, toward its top. Known eyes stand at their height in it, and in its middle where no
/// focus is given.
Rect face(const Framing& framing, Size picture, Size target, double zoom, std::optional<double> focus);

}

}
