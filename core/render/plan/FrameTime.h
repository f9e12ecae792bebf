#pragma once

#include "core/model/Times.h"
#include "platform/media/PictureGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace murbo {

struct Cut;

/// The one rule by which times meet the frames of a video, for pictures, shots, captions, overlays, sound,
/// stills and subtitles alike.
///
/// Frame n is the moment n / rate, at which a thing is on that has begun and not ended. A beginning or an end
/// is meant to a tick (`Times::tick`, a 600th of a second) and counts as reached from half a tick before it:
/// where one thing ends and the next begins, each frame shows exactly one of them, however their times were
/// added up.
namespace FrameTime {

/// Whether a beginning or an end lies at or before a moment. Video seconds, as everywhere here.
inline bool reached(double edge, double time) {
    return Times::onTick(edge) <= time + Times::tick / 2;
}

/// Whether what lasts from `start` to `end` is on at a moment. What is no number never is.
inline bool isOn(double start, double end, double time) {
    return reached(start, time) && Times::onTick(end) > time + Times::tick / 2;
}

/// The first frame that has reached a beginning or an end, at whole frames a second.
inline std::int64_t first(double edge, int rate) {
    const double near = std::floor((Times::onTick(edge) - Times::tick) * rate);
    auto frame = static_cast<std::int64_t>(std::max(near, 0.0));
    while (!reached(edge, static_cast<double>(frame) / rate)) ++frame;
    return frame;
}

/// The last moment of its source that a cut may ask for: the picture at its end is no longer the cut's. Where
/// the next cut goes on there (or null for none), it may be.
double lastMoment(const Cut& cut, const Cut* next);

/// Where in its file a cut begins. A picture within half a tick of the time given was meant: that was
/// rounded, and so may the picture's own have been, which its place on the file's grid makes good.
inline double begin(double start, const PictureGrid& grid) {
    constexpr double rounding = 1e-6;
    return grid.near(start, Times::tick / 2 + rounding).value_or(start);
}

/// The moment to ask a source for, so long after a cut's beginning `from`.
inline double asked(double from, double elapsed, double lastMoment) {
    return std::min(from + elapsed, lastMoment);
}

}

}
