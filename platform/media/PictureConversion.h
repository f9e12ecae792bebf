#pragma once

#include "platform/image/Frame.h"
#include "platform/media/FFmpeg.h"

#include <optional>

namespace murbo {

/// How samples lie, as far as a Frame can tell it.
struct PictureLayout {
    Frame::Layout layout = Frame::Layout::chroma420;
    int depth = 8;
    bool highBits = false;
    bool interleavedChroma = false;
    bool hasAlpha = false;
};

namespace PictureConversion {

/// Nothing where a Frame can't tell it.
std::optional<PictureLayout> layout(AVPixelFormat format);

/// The same picture in a layout that a Frame can tell, colours and times kept; null where that can't be done.
ffmpeg::Picture converted(ffmpeg::Picture picture);

}

}
