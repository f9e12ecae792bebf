#pragma once

#include "platform/image/draw/Layers.h"

namespace murbo::Smear {

/// A smeared picture on some grid, and the way from the canvas to it.
struct Smeared {
    Raster raster;
    Transform toGrid;
};

/// Smears a picture along a line. `place` leads from the node's space to the canvas, of which `bounds` is
/// wanted.
Smeared motion(const Image::Node::MotionBlur& blur, const Transform& place, const PixelRect& bounds,
               int depth);

/// Smears a picture outward from a point.
Smeared zoom(const Image::Node::ZoomBlur& blur, const Transform& place, const PixelRect& bounds, int depth);

}
