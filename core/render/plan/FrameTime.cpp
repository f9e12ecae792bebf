#include "core/render/plan/FrameTime.h"

#include "core/model/Video.h"

namespace murbo {

double FrameTime::lastMoment(const Cut& cut, const Cut* next) {
    if (next && next->source == cut.source && Times::onTick(next->start) == Times::onTick(cut.end))
        return cut.end + Times::tick;
    // The end and the picture's time may both have been rounded down, and readers reach a tick further.
    return std::max(cut.start, cut.end - 1.75 * Times::tick);
}

}
