#pragma once

#include "platform/image/Blend.h"
#include "platform/image/draw/Edges.h"
#include "platform/image/draw/Raster.h"

#include <memory>
#include <variant>
#include <vector>

namespace murbo {

/// One picture of a graph, ready to be drawn at its place on a canvas; one thread at a time.
struct Layer {
    /// A colour as a premultiplied pixel.
    struct Flat {
        std::uint32_t pixel;
    };
    /// Pixels that fall on the canvas' own grid.
    struct OnGrid {
        Raster raster;
    };
    using Content = std::variant<Flat, OnGrid, DrawTile>;

    Content content;
    PixelRect bounds; ///< nothing is drawn outside
    PixelRect solid;  ///< all of it hides what lies below
    int opacity = 255;
    std::vector<Edges> edges;                               ///< smooth edges, each fading what lies outside
    std::vector<std::shared_ptr<std::vector<Layer>>> masks; ///< each fading by its alpha
    Blend blend = Blend::normal;
};

/// Layers of one drawing, from the bottom up.
using Layers = std::vector<Layer>;

}
