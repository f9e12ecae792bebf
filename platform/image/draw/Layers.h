#pragma once

#include "platform/image/ImageNode.h"
#include "platform/image/draw/Edges.h"
#include "platform/image/draw/Pixels.h"
#include "platform/image/draw/Sampler.h"

#include <functional>
#include <variant>
#include <vector>

namespace murbo {

/// One picture of a graph, ready to be drawn at its place on a canvas.
struct Layer {
    /// A colour as a premultiplied pixel.
    struct Flat {
        std::uint32_t pixel;
    };
    /// Pixels that fall on the canvas' own grid.
    struct Still {
        Raster raster;
    };
    /// Whatever else can draw every pixel of a tile; one thread at a time.
    using Draw = std::function<void(const Tile&)>;

    using Ink = std::variant<Flat, Still, Draw>;

    Ink ink;
    PixelRect bounds; ///< nothing is drawn outside
    PixelRect solid;  ///< all of it hides what lies below
    int opacity = 255;
    std::vector<Edges> edges;                               ///< smooth edges, each fading what lies outside
    std::vector<std::shared_ptr<std::vector<Layer>>> masks; ///< each fading by its alpha
    Blend blend = Blend::normal;
};

/// Layers of one drawing, from the bottom up.
using Layers = std::vector<Layer>;

/// Flattens a graph: what is empty or outside is passed over, transforms and crops are worked into each
/// layer. `place` leads from the node's space to the canvas, `bounds` is all that will be asked. Composites
/// that must be drawn by themselves (a fade of several pictures, a blur) nest; what lies deeper than 500 of
/// them is left out.
Layers layersOf(const Image::Node& node, const Transform& place, const PixelRect& bounds, int depth = 0);

}
