#pragma once

#include "core/model/CaptionStyle.h"
#include "core/render/plan/CaptionCue.h"
#include "core/render/plan/Movement.h"
#include "platform/image/Geometry.h"

namespace murbo {

/// How a caption comes in and leaves.
namespace CaptionMotion {

/// How far a caption is from rest at a video time, in a frame of that size. The cue's own entrance and exit
/// go before the style's.
Movement at(const CaptionCue& cue, const CaptionStyle& style, double time, Size frame);

/// How many words of a caption that comes word by word are to be seen; nothing for any other caption.
std::optional<std::int64_t> reveal(const CaptionCue& cue, const CaptionStyle& style, double time);

/// The share of a caption's time that has passed, from 0 on.
double share(const CaptionCue& cue, double time);

}

}
