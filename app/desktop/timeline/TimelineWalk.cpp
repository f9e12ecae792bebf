#include "app/desktop/timeline/BlockWalk.h"
#include "app/desktop/timeline/TimelineView.h"
#include "platform/base/RawText.h"

#include <algorithm>

// What keys and screen readers do with the timeline's blocks.

namespace murbo {
namespace {

constexpr double beside = 24; ///< points left free beside a block that is brought into view

}

QRectF TimelineView::placeOf(const TimelineBlock& block) const {
    return {span.x(block.from), layout.top(block) - above, block.length() * span.scale,
            layout.blockHeight(block)};
}

void TimelineView::pickBlock(const TimelineBlock& block, bool more) {
    if (!session || !block.pickable) return;
    session->setFocus(Viewer::video);
    session->setInspecting(Inspecting::timeline);
    const bool picked = TimelinePicks::isPicked(*session, block.pick);
    if (!picked || !more) TimelinePicks::click(*session, block.pick, {more, false, false});
    bringUp(block);
    emit blockWalked();
}

void TimelineView::bringUp(const TimelineBlock& block) {
    const auto place = placeOf(block);
    if (place.left() < 0 || (place.right() > width() && place.width() > width()))
        setScroll(block.from - beside / span.scale);
    else if (place.right() > width())
        setScroll(block.to - (width() - beside) / span.scale);
    if (place.bottom() > height()) setRowsAbove(above + place.bottom() - height());
    if (place.top() < TimelineLayout::rulerHeight)
        setRowsAbove(above - TimelineLayout::rulerHeight + place.top());
}

void TimelineView::walk(const QString& name, bool more) {
    const auto way = fromRawText<BlockWalk::Way>(name.toStdString());
    if (!session || !way) return;
    const auto* block = BlockWalk::from(layout, session->picked(), session->playback.time(), *way);
    if (block) pickBlock(TimelineBlock(*block), more);
}

void TimelineView::goToPick() {
    const auto* block = session && session->picked() ? layout.find(*session->picked()) : nullptr;
    if (block) session->playback.seek(block->from);
}

void TimelineView::askMenu() {
    const auto* block = session && session->picked() ? layout.find(*session->picked()) : nullptr;
    const auto place = block ? placeOf(*block) : QRectF(playheadX(), 0, 0, TimelineLayout::rulerHeight);
    emit menuAsked(std::clamp(place.left(), 0.0, width()), std::clamp(place.bottom(), 0.0, height()),
                   block ? "block" : "timeline");
}

}
