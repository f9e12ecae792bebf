#pragma once

#include "platform/image/Frame.h"

namespace murbo {

/// How samples lie, as far as a Frame can describe it.
struct PictureLayout {
    Frame::Layout layout = Frame::Layout::chroma420;
    int depth = 8;
    bool highBits = false;
    bool interleavedChroma = false;
    bool hasAlpha = false;
};

}
