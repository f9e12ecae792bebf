#include "app/desktop/viewer/StillView.h"

#include "app/desktop/drawn/FootagePictures.h"

#include <cmath>

namespace murbo {
namespace {

constexpr double standard = 0.2; ///< of the stretch: its very beginning is often black

}

StillView::StillView(QQuickItem* parent) : DrawnView(parent), share(standard) {
    setAcceptHoverEvents(true);
    connect(this, &StillView::changed, this, &QQuickItem::update);
    connect(this, &StillView::footageChanged, this,
            [this] { setPictures(qobject_cast<FootagePictures*>(footage)); });
}

DrawList StillView::drawList() {
    DrawList list;
    const auto id = UUID::parse(source.toStdString());
    if (!id) return list;
    const auto second = static_cast<int>(std::floor(from + (to - from) * share));
    list.items.emplace_back(DrawList::Still{{0, 0, width(), height()}, *id, second, width(), 0});
    return list;
}

void StillView::setShare(double now) {
    if (now == share) return;
    share = now;
    update();
}

void StillView::hoverMoveEvent(QHoverEvent* event) {
    setShare(std::clamp(event->position().x() / std::max(width(), 1.0), 0.0, 1.0));
}

void StillView::hoverLeaveEvent(QHoverEvent*) {
    setShare(standard);
}

}
