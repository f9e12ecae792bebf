#pragma once

#include "core/render/stage/Context.h"

#include <optional>

namespace murbo::Stage {

/// A layer's picture before it is moved to its place.
struct Made {
    Image image;
    double scale = 1;    ///< at which the picture has the size that the layer asks for
    bool placed = false; ///< stands in the frame already and is not moved
    bool round = false;  ///< no straight edges that would have to meet those of others
};

/// A layer's picture. Nothing where it has none: no file, no source, no text.
std::optional<Made> element(const Context& context);

}
