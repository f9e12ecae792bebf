#include "app/desktop/timeline/Autoscroll.h"
#include "app/desktop/timeline/TimelineDrops.h"
#include "app/desktop/timeline/TimelineView.h"
#include "app/editor/Timecode.h"

#include <QCursor>
#include <QGuiApplication>
#include <cmath>
#include <tuple>
#include <utility>

// What mouse, keys and drags from elsewhere do to the timeline.

namespace murbo {
namespace {

constexpr double wheelNotch = 120;
constexpr double wheelPoints = 60;
constexpr double zoomFactor = 1.25;
constexpr double maxRoom = 0.25; ///< of the width, that the cuts make for what comes in
constexpr QPointF nowhere(-1, -1);

TimelinePicks::Modifiers modifiers(Qt::KeyboardModifiers keys) {
    return {bool(keys & Qt::ShiftModifier), bool(keys & Qt::ControlModifier), bool(keys & Qt::AltModifier)};
}

}

/// The ruler stays where it is while the rows scroll beneath it.
TimelineDrag::Pointer TimelineView::point(const QPointF& position) const {
    const bool onRuler = position.y() < TimelineLayout::rulerHeight;
    return {position.x(), onRuler ? position.y() : position.y() + above};
}

void TimelineView::mousePressEvent(QMouseEvent* event) {
    if (!session) return;
    forceActiveFocus(Qt::MouseFocusReason);
    const auto at = point(event->position());
    if (event->button() == Qt::RightButton) {
        const auto* block = layout.hit(span.time(at.x), at.y, 3 / span.scale);
        if (block && block->pickable && !TimelinePicks::isPicked(*session, block->pick))
            TimelinePicks::click(*session, block->pick, {});
        session->setInspecting(Inspecting::timeline);
        const bool caption = block && block->pick.kind == Pick::Kind::caption;
        emit menuAsked(event->position().x(), event->position().y(),
                       caption ? "caption"
                       : block ? "block"
                               : "timeline");
        return;
    }
    if (session->playback.skimmed()) {
        session->playback.endScrub();
        emit playheadChanged();
    }
    const auto tool = session->tool();
    if (event->button() == Qt::MiddleButton) session->setTool(EditingTool::hand);
    drag->press(layout, span, at, modifiers(event->modifiers()));
    session->setTool(tool);
    dragPosition = event->position();
    emit dragChanged();
}

void TimelineView::mouseMoveEvent(QMouseEvent* event) {
    if (!drag || !drag->active()) return;
    dragTo(event->position(), event->modifiers());
    const bool runs =
        drag->holding() != TimelineDrag::Grip::pan && Autoscroll::speed(event->position().x(), width()) != 0;
    if (runs && !running.isActive()) running.start();
    if (!runs) running.stop();
}

void TimelineView::dragTo(const QPointF& position, Qt::KeyboardModifiers held) {
    dragPosition = position;
    dragKeys = held;
    scrollBy(drag->move(layout, span, point(position), modifiers(held)));
    part();
    emit dragChanged();
}

/// Near a side the timeline goes on under a hand that holds still.
void TimelineView::runAlong() {
    if (!drag || !drag->active()) return running.stop();
    const double before = span.from;
    scrollBy(Autoscroll::speed(dragPosition.x(), width()) / span.scale * running.interval() / 1000);
    if (span.from != before) dragTo(dragPosition, dragKeys);
}

void TimelineView::mouseReleaseEvent(QMouseEvent*) {
    running.stop();
    if (!drag) return;
    if (drag->landing()) parted.settle(); // the project has them there
    drag->release();
    emit dragChanged();
    update();
}

void TimelineView::mouseUngrabEvent() {
    if (drag && drag->active()) cancelDrag();
}

void TimelineView::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto at = point(event->position());
    const auto* block = session ? layout.hit(span.time(at.x), at.y, 3 / span.scale) : nullptr;
    if (block && block->pick.kind == Pick::Kind::caption && event->button() == Qt::LeftButton) editPicked();
}

void TimelineView::editPicked() {
    const auto pick = session ? session->picked() : std::nullopt;
    const auto* block = pick && pick->kind == Pick::Kind::caption ? layout.find(*pick) : nullptr;
    if (!block) return;
    cancelDrag();
    if (block->to < span.from || block->from > span.to()) setScroll(block->from - width() / span.scale / 10);
    const QRectF place(span.x(block->from), layout.top(*block) - above, block->length() * span.scale,
                       layout.blockHeight(*block));
    emit editAsked(place, QString::fromStdString(pick->id.text()),
                   static_cast<int>(pick->piece.value_or(-1)));
}

bool TimelineView::cancelDrag() {
    running.stop();
    if (!drag || !drag->active()) return false;
    drag->cancel();
    part();
    emit dragChanged();
    return true;
}

/// Alt lets what has caught go, and catch again, with the hand where it is.
void TimelineView::letAltGo(const QKeyEvent& event, bool held) {
    if (event.key() != Qt::Key_Alt || !drag || !drag->active()) return;
    dragTo(dragPosition, held ? dragKeys | Qt::AltModifier : dragKeys & ~Qt::AltModifier);
}

void TimelineView::keyPressEvent(QKeyEvent* event) {
    letAltGo(*event, true);
    event->ignore();
}

void TimelineView::keyReleaseEvent(QKeyEvent* event) {
    letAltGo(*event, false);
    event->ignore();
}

void TimelineView::hoverMoveEvent(QHoverEvent* event) {
    showHint(event->position());
    showCursor(event->position());
    // Each frame drawn under a mouse that rests sends one more: it is no hand that skims.
    if (std::exchange(dragPosition, event->position()) == event->position()) return;
    if (!session || !session->skimming() || !session->playback.isLoaded() || session->playback.rate() != 0)
        return;
    const double time = span.time(event->position().x());
    const bool over = time >= 0 && time < layout.length;
    if (over) session->playback.skim(time);
    if (!over && session->playback.skimmed()) session->playback.endScrub();
    emit playheadChanged();
}

void TimelineView::hoverLeaveEvent(QHoverEvent*) {
    dragPosition = nowhere;
    blade = -1;
    hintWords.clear();
    emit hintChanged();
    if (session && session->playback.skimmed()) session->playback.endScrub();
    emit playheadChanged();
}

void TimelineView::showCursor(const QPointF& position) {
    using Grip = TimelineDrag::Grip;
    const auto grip = drag ? drag->grip(layout, span, point(position)) : Grip::none;
    if (grip == Grip::roll || blade >= 0) // at an end too the blade cuts
        setCursor(Qt::SplitHCursor);
    else if (grip == Grip::start || grip == Grip::end)
        setCursor(Qt::SizeHorCursor);
    else if (grip == Grip::pan)
        setCursor(Qt::OpenHandCursor);
    else if (session && session->tool() == EditingTool::blade)
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
}

/// With the blade the moment of the footage that it would cut at; else how long nobody speaks.
void TimelineView::showHint(const QPointF& position) {
    const auto before = std::tuple(blade, hintWords);
    blade = -1;
    hintWords.clear();
    const auto at = point(position);
    const double time = span.time(at.x);
    const auto* block = session && at.y > TimelineLayout::rulerHeight ? layout.hit(time, at.y) : nullptr;
    const auto kind = block ? block->pick.kind : Pick::Kind::caption;
    const auto held = modifiers(QGuiApplication::keyboardModifiers());
    const bool cuttable = kind == Pick::Kind::cut || kind == Pick::Kind::overlay ||
                          kind == Pick::Kind::sound || kind == Pick::Kind::music;
    if (session && session->tool() == EditingTool::blade &&
        (cuttable || (held.shift && time < layout.length))) {
        const double cut = TimelinePicks::snapped(*session, time, span.scale, {}, {}, held);
        blade = span.x(cut);
        const auto moment = kind == Pick::Kind::cut && block->source ? block->at + cut - block->from : cut;
        hintWords = QString::fromStdString(Timecode::fine(moment));
    } else if (kind == Pick::Kind::cut) {
        for (const auto& quiet : block->quiet)
            if (quiet.from <= time && time < quiet.to)
                hintWords = QString("quiet, %1 s").arg(quiet.length(), 0, 'f', 1);
    }
    hintPlace = {blade >= 0 ? blade : position.x(),
                 block ? layout.top(*block) - above : double(TimelineLayout::rulerHeight)};
    if (before != std::tuple(blade, hintWords) || !hintWords.isEmpty()) emit hintChanged();
}

/// Ctrl zooms round the pointer, Shift goes sideways, a wheel alone goes down where there is more below and
/// sideways otherwise.
void TimelineView::wheelEvent(QWheelEvent* event) {
    const auto turn = event->angleDelta();
    const double notches = (turn.y() != 0 ? turn.y() : turn.x()) / wheelNotch;
    if (event->modifiers() & Qt::ControlModifier)
        zoomRound(std::pow(zoomFactor, notches), event->position().x());
    else if (turn.x() == 0 && !(event->modifiers() & Qt::ShiftModifier) && layout.height > height())
        setRowsAbove(above - notches * wheelPoints);
    else
        scrollBy(-notches * wheelPoints / span.scale);
    event->accept();
}

// ------------------------------------------------------------------------ drops --

void TimelineView::dropMoves(const QString& kind, double x) {
    const bool between = kind == "clips";
    foreignDrop = !session  ? std::nullopt
                  : between ? std::optional(TimelineDrops::seam(*session, momentAt(x)))
                            : std::optional(momentAt(x));
    foreignLanding = session && between ? TimelineDrops::landing(*session, momentAt(x)) : std::nullopt;
    // The cuts after a long clip stay in sight.
    if (foreignLanding)
        foreignLanding->length = std::min(foreignLanding->length, maxRoom * width() / span.scale);
    part();
    emit dragChanged();
}

void TimelineView::dropLeaves() {
    foreignDrop.reset();
    foreignLanding.reset();
    part();
    emit dragChanged();
}

bool TimelineView::dropClips(double x) {
    dropLeaves();
    const bool taken = session && TimelineDrops::clips(*session, momentAt(x));
    if (taken) parted.settle(); // the project has made the room
    return taken;
}

QStringList TimelineView::dropFiles(const QStringList& files, double x, double y) {
    dropLeaves();
    if (!session) return files;
    std::vector<std::filesystem::path> paths;
    for (const auto& file : files) paths.emplace_back(file.toStdString());
    QStringList left;
    auto dropped = TimelineDrops::files(*session, paths, momentAt(x), rowAt(y));
    for (const auto& file : dropped.left) left.append(QString::fromStdString(file.string()));
    if (arrivals) arrivals->take(std::move(dropped.arriving));
    return left;
}

}
