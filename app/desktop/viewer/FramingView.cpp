#include "app/desktop/viewer/FramingView.h"

#include "app/desktop/viewer/ArrowStep.h"
#include "app/editor/commands/LookCommands.h"

#include <QCursor>
#include <cmath>

namespace murbo {
namespace {

using BoxHandles::BoxHandle;

constexpr double grab = 8;       ///< points round an edge
constexpr double handleSide = 7; ///< points
constexpr double nudge = 0.001;  ///< of the picture
constexpr double nudgeFar = 0.01;
constexpr double labelHeight = 18;

}

FramingView::FramingView(QQuickItem* parent) : DrawnView(parent) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
    setClip(false);
    for (const auto changed :
         {&FramingView::coloursChanged, &FramingView::chosenChanged, &FramingView::framingChanged})
        connect(this, changed, this, &QQuickItem::update);
    connect(this, &QQuickItem::activeFocusChanged, this, &QQuickItem::update);
}

void FramingView::setEditor(Editor* given) {
    if (given == session) return;
    if (session) {
        session->disconnect(this);
        session->source.disconnect(this);
    }
    session = given;
    if (session) {
        connect(session, &Editor::projectChanged, this, &FramingView::framingChanged);
        connect(&session->source, &Playback::sourceChanged, this, &FramingView::framingChanged);
    }
    emit editorChanged();
    emit framingChanged();
}

void FramingView::setChosen(int given) {
    const auto now = static_cast<FramingEdit::FramingPart>(std::clamp(given, 0, 3));
    if (now == part) return;
    part = now;
    emit chosenChanged();
    emit framingChanged();
}

Framing FramingView::framingOf(const Editor& editor) {
    const auto shown = editor.source.source();
    const auto* source = shown ? editor.project().source(*shown) : nullptr;
    return source ? source->framing.value_or(Framing()) : Framing();
}

bool FramingView::hasEyes() const {
    return session && framingOf(*session).eyes.has_value();
}

QString FramingView::words() const {
    if (!session) return {};
    const auto framing = framingOf(*session);
    const auto percent = [](double share) { return QString::number(std::round(share * 1000) / 10) + " %"; };
    const auto box = [&](const char* name, const Box& lies) {
        return QString("%1: from left %2, from top %3, width %4, height %5")
            .arg(name, percent(lies.x), percent(lies.y), percent(lies.w), percent(lies.h));
    };
    switch (part) {
        case FramingEdit::FramingPart::content:
            return box("Content", framing.content);
        case FramingEdit::FramingPart::face:
            return box("Face", framing.face);
        case FramingEdit::FramingPart::eyes: {
            const auto at = FramingEdit::eyes(framing);
            return QString("Eyes: from left %1, from top %2").arg(percent(at.x()), percent(at.y()));
        }
        case FramingEdit::FramingPart::split:
            return QString("Split: content has %1 of the height").arg(percent(framing.split));
    }
    return {};
}

QPointF FramingView::share(const QPointF& point) const {
    return {point.x() / std::max(width(), 1.0), point.y() / std::max(height(), 1.0)};
}

QSizeF FramingView::reach() const {
    return {grab / std::max(width(), 1.0), grab / std::max(height(), 1.0)};
}

// ---------------------------------------------------------------------- drawing --

void FramingView::drawBox(DrawList& list, const Box& box, const QColor& colour, const QString& name,
                          bool active) {
    const QRectF place(box.x * width(), box.y * height(), box.w * width(), box.h * height());
    list.frame(place, active ? 3 : 2, colour);
    const double wide = std::min(place.width(), 12.0 + 7.0 * static_cast<double>(name.size()));
    const QRectF tag(place.left(), place.top(), wide, std::min(labelHeight, place.height()));
    list.fill(tag, colour);
    list.items.emplace_back(DrawList::Label{tag.adjusted(6, 0, -2, 0), name, labelColour, false, true});
    for (const auto handle : BoxHandles::allEdges) {
        const auto at = BoxHandles::place(place, handle);
        list.fill({at.x() - handleSide / 2, at.y() - handleSide / 2, handleSide, handleSide}, colour);
    }
}

DrawList FramingView::drawList() {
    DrawList list;
    if (!session || !session->source.isLoaded() || !session->source.source()) return list;
    const auto framing = framingOf(*session);
    for (const auto& cell : FramingEdit::outside(framing))
        list.fill({cell.x() * width(), cell.y() * height(), cell.width() * width(), cell.height() * height()},
                  veil);
    using FramingEdit::FramingPart;
    drawBox(list, framing.content, contentColour, "Content", part == FramingPart::content);
    drawBox(list, framing.face, faceColour, "Face", part == FramingPart::face);
    const auto eyes = FramingEdit::eyes(framing);
    const QPointF at(eyes.x() * width(), eyes.y() * height());
    auto dot = faceColour;
    if (!framing.eyes) dot.setAlphaF(0.55F);
    const double arm = part == FramingPart::eyes ? 9 : 7;
    list.fill({at.x() - arm, at.y() - 1, 2 * arm, 2}, dot);
    list.fill({at.x() - 1, at.y() - arm, 2, 2 * arm}, dot);
    list.fill({at.x() - 3, at.y() - 3, 6, 6}, dot);
    return list;
}

// ------------------------------------------------------------------------- hand --

void FramingView::set(const Framing& framing) {
    if (const auto shown = session->source.source())
        LookCommands::dragFraming(*session, *shown, [&](Framing& now) { now = framing; });
}

void FramingView::mousePressEvent(QMouseEvent* event) {
    if (!session || !session->source.source()) return;
    forceActiveFocus(Qt::MouseFocusReason);
    session->setFocus(Viewer::source);
    start = framingOf(*session);
    held = FramingEdit::at(start, share(event->position()), reach());
    pressed = event->position();
    dragging = held.handle != BoxHandle::none;
    if (dragging) setChosen(static_cast<int>(held.part));
}

void FramingView::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging || !session) return;
    set(FramingEdit::pulled(start, held, share(event->position() - pressed)));
}

void FramingView::mouseReleaseEvent(QMouseEvent*) {
    if (!std::exchange(dragging, false) || !session) return;
    session->closeDrag(stepName);
}

void FramingView::mouseUngrabEvent() {
    cancelDrag();
}

bool FramingView::cancelDrag() {
    if (!std::exchange(dragging, false) || !session) return false;
    session->cancelDrag();
    return true;
}

void FramingView::forgetEyes() {
    const auto shown = session ? session->source.source() : std::nullopt;
    if (!shown) return;
    LookCommands::dragFraming(*session, *shown, [](Framing& framing) { framing.eyes.reset(); });
    session->closeDrag(stepName);
}

void FramingView::hoverMoveEvent(QHoverEvent* event) {
    if (!session) return;
    setCursor(
        BoxHandles::cursor(FramingEdit::at(framingOf(*session), share(event->position()), reach()).handle));
}

/// Arrows move what is chosen, with Ctrl its right and lower edges; Shift goes ten times as far.
void FramingView::keyPressEvent(QKeyEvent* event) {
    auto by = ArrowStep::of(event->key());
    if (by.isNull()) return event->ignore();
    if (!session || !session->source.source()) return;
    by *= event->modifiers() & Qt::ShiftModifier ? nudgeFar : nudge;
    const bool sizes = event->modifiers() & Qt::ControlModifier;
    set(FramingEdit::pulled(framingOf(*session), {part, sizes ? BoxHandle::bottomRight : BoxHandle::body},
                            by));
    session->endDragSoon(stepName);
}

}
