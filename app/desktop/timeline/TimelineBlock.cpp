#include "app/desktop/timeline/TimelineBlock.h"

namespace murbo {

TimelineBlock TimelineBlock::movedBy(double seconds) const {
    auto block = *this;
    block.from += seconds;
    block.to += seconds;
    for (auto& stretch : block.quiet) {
        stretch.from += seconds;
        stretch.to += seconds;
    }
    return block;
}

}
