#pragma once

#include "platform/image/Frame.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/PictureLayout.h"

#include <optional>

namespace murbo {

namespace PictureConversion {

/// Nothing where a Frame can't describe it.
std::optional<PictureLayout> layout(AVPixelFormat format);

/// The same picture in a layout that a Frame can describe, colours and times kept; null where that can't be
/// done.
ffmpeg::Picture converted(ffmpeg::Picture picture);

}

}
