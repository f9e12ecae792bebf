#pragma once

#include "platform/image/ImageNode.h"
#include "platform/image/draw/PictureSource.h"

/// Draws pictures that are smeared, as by a moving camera. `place` leads from the picture's space to the
/// canvas, of which `bounds` is wanted.
namespace murbo::DirectionalBlur {

/// A smeared picture on some grid, and the way from the canvas to it.
struct Smeared {
    Raster raster;
    Transform toGrid;
};

/// Along a line.
Smeared motion(const ImageNode::MotionBlur& blur, const PictureSource& source, const Transform& place,
               const PixelRect& bounds);

/// Outward from a point.
Smeared zoom(const ImageNode::ZoomBlur& blur, const PictureSource& source, const Transform& place,
             const PixelRect& bounds);

}
