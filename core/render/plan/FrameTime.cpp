#include "core/render/plan/FrameTime.h"

#include "core/model/Video.h"

namespace murbo {

double FrameTime::lastMoment(const Cut& cut, const Cut* next) {
    if (next && next->source == cut.source && Times::onTick(next->start) == Times::onTick(cut.end))
        return cut.end;
    // The end may have been rounded by most of a tick, and the reader's own reaches as far again.
    return std::max(cut.start, cut.end - 1.9 * Times::tick);
}

}
