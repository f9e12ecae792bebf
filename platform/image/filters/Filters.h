#pragma once

#include "platform/image/draw/Layers.h"

#include <optional>

/// Draws filtered pictures. Each filter works upright on the pixels of some grid, its lengths scaled to them;
/// a picture that is turned or mirrored is filtered on a grid of its own and turned then.
namespace murbo::Filters {

/// The filter held within what can be drawn; nothing where it changes nothing of a picture with that body,
/// or tells no number.
std::optional<Filter> held(const Filter& filter, const Rect& body);

/// How far colour can spread, in the picture's pixels.
double reach(const Filter& filter);

/// Whether each pixel follows from itself alone, wherever it lies.
bool byPixel(const Filter& filter);

/// A cube's colours as pixels, with some to spare behind them (see `Kernels::ColourTable`); nothing for other
/// filters.
std::shared_ptr<const std::vector<std::uint32_t>> packed(const Filter& filter);

/// Whether `drawing` can draw it as it is placed.
bool fits(const Filter& filter, const Transform& place);

/// Ready to draw any part of `bounds`; `place` leads from the node's space to the grid.
Layer::Draw drawing(const Image::Node::Filtered& filtered, const Transform& place, const PixelRect& bounds,
                    int depth);

/// A picture on some grid, and the way from the canvas to it.
struct Placed {
    Raster raster;
    Transform toGrid;
};
/// Drawn on a grid of its own, along the picture's axes.
Placed upright(const Image::Node& node, const Image::Node::Filtered& filtered, const Transform& place,
               const PixelRect& bounds, int depth);

}
