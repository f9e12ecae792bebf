#pragma once

#include "platform/media/FFmpeg.h"

namespace murbo {

/// What a track says of its pictures and the pictures don't say themselves.
struct PictureTraits {
    int quarterTurns = 0;   ///< clockwise, that bring a picture upright
    double pixelAspect = 1; ///< width of a stored pixel over its height
    AVCodecID codec = AV_CODEC_ID_NONE;
};

}
