#pragma once

#include "platform/image/draw/Layers.h"

namespace murbo {

/// Whether a node, seen through `place`, is known to be opaque all over an area.
bool covers(const Image::Node& node, const Transform& place, const PixelRect& area);

/// The node's layers, made for `area` of a grid, drawn into a raster.
Raster painted(Layers layers, const Image::Node& node, const Transform& toGrid, const PixelRect& area);

/// Draws a graph into a raster of its own, `area` being what of the grid is wanted; nothing where that is
/// empty or too large to be held.
Raster rasterised(const Image::Node& node, const Transform& toGrid, const PixelRect& area, int depth);

/// Premultiplied pixels of a frame that has alpha, as they are stored.
Raster premultiplied(const Frame& frame);

}
