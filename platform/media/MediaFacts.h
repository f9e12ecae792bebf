#pragma once

#include "platform/image/Geometry.h"
#include "platform/media/PictureGrid.h"

#include <optional>

namespace murbo {

/// What a media file is, read from its header and a little beyond. All times count from the file's own zero,
/// the earliest start of its tracks.
struct MediaFacts {
    struct Picture {
        Size size;              ///< upright, square pixels
        double nominalRate = 0; ///< frames a second, the rate it was made at; 0 where it cannot be found
        double meanRate = 0;    ///< frames a second over its length
        bool variableRate = false;
        bool interlaced = false;
        bool highDynamicRange = false;
        int quarterTurns = 0; ///< clockwise, that bring it upright
        PictureGrid grid;
    };
    struct Sound {
        int tracks = 0;
        int rate = 0; ///< of the first track, samples a second
        int channels = 0;
    };

    double length = 0; ///< seconds; 0 where it cannot be found
    std::optional<Picture> picture;
    std::optional<Sound> sound;
};

}
