#include "app/desktop/viewer/WaveStrip.h"

#include "app/desktop/drawn/FootagePictures.h"

#include <QCursor>
#include <utility>

namespace murbo {
namespace {

constexpr double tile = 256; ///< points
constexpr double clipHeight = 3;

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
        connect(session, &Editor::heldClipChanged, this, &QQuickItem::update);
        connect(session, &Editor::loudnessChanged, this, &QQuickItem::update);
        connect(session, &Editor::skimmingChanged, this, [this] {
            if (!session->skimming()) endSkim();
        });
        connect(&session->source, &Playback::spanChanged, this, &QQuickItem::update);
        connect(&session->source, &Playback::timeChanged, this, &QQuickItem::update);
        connect(&session->source, &Playback::sourceChanged, this, &QQuickItem::update);
    }
    emit editorChanged();
}

void WaveStrip::setFootage(QObject* footage) {
    setPictures(qobject_cast<FootagePictures*>(footage));
}

RangeHandles::RangeEnd WaveStrip::endAt(double at) const {
    const auto marked = session ? session->range() : std::nullopt;
    return marked ? RangeHandles::at(*marked, scale(), at) : RangeHandles::RangeEnd::none;
}

/// What is marked on the source: clips along the foot, live markers and bookmarks as ticks.
void WaveStrip::drawMarks(DrawList& list, const UUID& source) const {
    const auto tick = [&](double at, double top, double wide) {
        list.fill({x(at), top, wide, height() - top}, mark);
    };
    for (const auto& one : session->project().clips) {
        if (one.source != source) continue;
        const double left = std::max(x(one.start), 0.0);
        const double right = std::min(x(one.end), width());
        const bool held = session->heldClip() == one.id;
        list.fill({left, height() - clipHeight, right - left - 1, clipHeight}, held ? range : clip);
        for (const auto at : one.marks) tick(at, height() * 0.6, 1);
    }
    for (const auto& bookmark : session->project().bookmarks) {
        if (bookmark.source != source) continue;
        tick(bookmark.at, 0, 2);
        if (bookmark.end) list.fill({x(bookmark.at), 0, x(*bookmark.end) - x(bookmark.at), 3}, mark);
    }
}

/// The range with a grip at each end.
void WaveStrip::drawRange(DrawList& list) const {
    const auto marked = session->range();
    if (!marked) return;
    const QRectF lies(x(marked->from), 0, std::max(x(marked->to) - x(marked->from), 2.0), height());
    list.frame(lies, 2, range);
    list.fill({lies.left() - 2, 0, 5, height()}, range);
    list.fill({lies.right() - 3, 0, 5, height()}, range);
}

DrawList WaveStrip::drawList() {
    DrawList list;
    if (!session || !session->source.source() || !session->source.isLoaded()) return list;
    const auto source = *session->source.source();
    if (const auto marked = session->range()) {
        auto inside = range;
        inside.setAlphaF(0.2F);
        list.fill({x(marked->from), 0, x(marked->to) - x(marked->from), height()}, inside);
    }
    for (double left = 0; left < width(); left += tile) {
        const double right = std::min(left + tile, width());
        list.items.emplace_back(
            DrawList::Wave{{left, 4, right - left, height() - 8}, source, time(left), time(right), wave});
    }
    drawMarks(list, source);
    drawRange(list);
    const auto skim = session->source.skimmed();
    if (skim) list.fill({x(*skim), 0, 1, height()}, Qt::white);
    list.fill({x(session->source.time()) - 1, 0, 2, height()}, playhead);
    return list;
}

void WaveStrip::mousePressEvent(QMouseEvent* event) {
    if (!session) return;
    session->setFocus(Viewer::source);
    endSkim();
    pulled = endAt(event->position().x());
    if (pulled == RangeHandles::RangeEnd::none) session->source.seek(time(event->position().x()));
}

void WaveStrip::mouseMoveEvent(QMouseEvent* event) {
    if (!session) return;
    const double to = time(event->position().x());
    const auto marked = session->range();
    if (pulled == RangeHandles::RangeEnd::none || !marked) return session->source.seek(to);
    const auto next = RangeHandles::dragged(*marked, pulled, to, session->source.span());
    session->setRange(next);
    session->source.seek(pulled == RangeHandles::RangeEnd::start ? next.from : next.to);
}

void WaveStrip::mouseReleaseEvent(QMouseEvent*) {
    pulled = RangeHandles::RangeEnd::none;
}

void WaveStrip::mouseUngrabEvent() {
    pulled = RangeHandles::RangeEnd::none;
}

void WaveStrip::hoverMoveEvent(QHoverEvent* event) {
    if (!session || !session->source.isLoaded()) return;
    const double at = event->position().x();
    setCursor(endAt(at) == RangeHandles::RangeEnd::none ? Qt::ArrowCursor : Qt::SizeHorCursor);
    // Each frame drawn under a mouse that rests sends one more: it is no hand that skims.
    if (std::exchange(hovered, event->position()) == event->position()) return;
    if (!session->skimming() || session->source.rate() != 0) return;
    session->source.skim(std::clamp(time(at), session->source.spanStart(), session->source.spanEnd()));
    emit skimmed();
    update();
}

void WaveStrip::hoverLeaveEvent(QHoverEvent*) {
    hovered.reset();
    endSkim();
}

void WaveStrip::endSkim() {
    if (!session || !session->source.skimmed()) return;
    session->source.endScrub();
    emit skimmed();
    update();
}

}
