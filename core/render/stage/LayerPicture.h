#pragma once

#include "platform/image/Image.h"

namespace murbo::Stage {

/// A layer's picture before it is moved to its place.
struct LayerPicture {
    Image image;
    double scale = 1;    ///< at which the picture has the size that the layer asks for
    bool placed = false; ///< stands in the frame already and is not moved
    bool round = false;  ///< has no straight edges that would have to meet those of others
};

}
