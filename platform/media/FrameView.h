#pragma once

#include "platform/image/Frame.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/PictureTraits.h"

namespace murbo {

namespace FrameView {

/// The traits of a track. Turns other than quarter turns, and mirrors, count as none.
PictureTraits traits(AVFormatContext* format, AVStream* stream);

/// A decoded picture as a Frame that points into it; layouts that a Frame can't describe are converted first.
/// Nothing where there is no picture in it, or it can't be converted.
std::optional<Frame> of(ffmpeg::Picture picture, const PictureTraits& traits);

/// Whether a transfer curve is one of high dynamic range.
bool isHighDynamicRange(AVColorTransferCharacteristic curve);

}

}
