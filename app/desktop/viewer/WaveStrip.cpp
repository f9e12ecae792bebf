#include "app/desktop/viewer/WaveStrip.h"

#include "app/desktop/drawn/FootagePictures.h"

namespace murbo {
namespace {

constexpr double tile = 256; ///< points

}

WaveStrip::WaveStrip(QQuickItem* parent) : DrawnView(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    connect(this, &WaveStrip::coloursChanged, this, &QQuickItem::update);
}

void WaveStrip::setEditor(Editor* given) {
    if (given == session) return;
    if (session) {
        session->disconnect(this);
        session->source.disconnect(this);
    }
    session = given;
    if (session) {
        connect(session, &Editor::rangeChanged, this, &QQuickItem::update);
        connect(session, &Editor::projectChanged, this, &QQuickItem::update);
        connect(session, &Editor::loudnessChanged, this, &QQuickItem::update);
        connect(&session->source, &Playback::spanChanged, this, &QQuickItem::update);
        connect(&session->source, &Playback::timeChanged, this, &QQuickItem::update);
        connect(&session->source, &Playback::sourceChanged, this, &QQuickItem::update);
    }
    emit editorChanged();
}

void WaveStrip::setFootage(QObject* footage) {
    setPictures(qobject_cast<FootagePictures*>(footage));
}

double WaveStrip::x(double at) const {
    const auto span = session->source.span();
    return span.to > span.from ? (at - span.from) / (span.to - span.from) * width() : 0;
}

double WaveStrip::time(double at) const {
    const auto span = session->source.span();
    return span.from + at / std::max(width(), 1.0) * (span.to - span.from);
}

DrawList WaveStrip::drawList() {
    DrawList list;
    if (!session || !session->source.source() || !session->source.isLoaded()) return list;
    const auto source = *session->source.source();
    const QRectF whole(0, 0, width(), height());
    if (const auto marked = session->range()) {
        const QRectF lies(x(marked->from), 0, x(marked->to) - x(marked->from), height());
        auto inside = range;
        inside.setAlphaF(0.2F);
        list.fill(lies, inside);
    }
    for (double left = 0; left < width(); left += tile) {
        const double right = std::min(left + tile, width());
        list.items.emplace_back(
            DrawList::Wave{{left, 4, right - left, height() - 8}, source, time(left), time(right), wave});
    }
    for (const auto& bookmark : session->project().bookmarks)
        if (bookmark.source == source) list.fill({x(bookmark.at), 0, 2, height()}, mark);
    if (const auto* clip = session->held())
        for (const auto at : clip->marks) list.fill({x(at), 0, 1, height()}, mark);
    if (const auto marked = session->range())
        list.frame({x(marked->from), 0, x(marked->to) - x(marked->from), height()}, 2, range);
    list.fill({x(session->source.time()) - 1, 0, 2, height()}, playhead);
    return list;
}

void WaveStrip::mousePressEvent(QMouseEvent* event) {
    if (!session) return;
    session->setFocus(Viewer::source);
    session->source.seek(time(event->position().x()));
}

void WaveStrip::mouseMoveEvent(QMouseEvent* event) {
    if (session) session->source.seek(time(event->position().x()));
}

void WaveStrip::hoverMoveEvent(QHoverEvent* event) {
    if (session && session->skimming() && session->source.isLoaded() && session->source.rate() == 0)
        session->source.skim(time(event->position().x()));
}

void WaveStrip::hoverLeaveEvent(QHoverEvent*) {
    if (session && session->source.skimmed()) session->source.endScrub();
}

}
