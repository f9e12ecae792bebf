#include "app/desktop/timeline/TimelineView.h"

#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/timeline/TimelineTheme.h"
#include "core/ai/SaidCache.h"
#include "core/model/Settings.h"
#include "core/playbooks/Playbooks.h"

#include <QCursor>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr double standardScale = 20; ///< points a second at zoom 1
constexpr double leastScale = 0.02;
constexpr double mostScale = 600;
constexpr double fittedMost = 80; ///< a video of a few seconds is not blown up further
constexpr double margin = 40;     ///< points left free after the end
constexpr double zoomFactor = 1.25;
constexpr double wheelNotch = 120;
constexpr double wheelPoints = 60;

const char* const rowNames[] = {"Shots", "Layers", "Video", "Captions", "Overlays", "Sounds", "Music"};

/// The lane of sound that a row's header mutes; empty for rows without one.
QString laneOf(TimelineRow row) {
    switch (row) {
        case TimelineRow::picture:
            return "video";
        case TimelineRow::overlays:
            return "overlays";
        case TimelineRow::sounds:
            return "sounds";
        case TimelineRow::music:
            return "music";
        default:
            return "";
    }
}

std::optional<TimelineLayout::BookFacts> facts(const std::string& id, std::int64_t version,
                                               const std::optional<std::filesystem::path>& package) {
    const auto book = Playbooks::book(id, version, package);
    if (!book) return {};
    return TimelineLayout::BookFacts{book->playbook.name, book->playbook.layered()};
}

TimelinePicks::Modifiers modifiers(Qt::KeyboardModifiers keys) {
    return {bool(keys & Qt::ShiftModifier), bool(keys & Qt::ControlModifier), bool(keys & Qt::AltModifier)};
}

}

TimelineView::TimelineView(QQuickItem* parent) : DrawnView(parent), said(std::make_unique<SaidCache>()) {
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton | Qt::RightButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
}

TimelineView::~TimelineView() = default;

void TimelineView::setEditor(Editor* given) {
    if (given == session) return;
    if (session) {
        session->disconnect(this);
        session->playback.disconnect(this);
    }
    session = given;
    drag = session ? std::make_unique<TimelineDrag>(*session) : nullptr;
    fitted = false;
    if (session) {
        connect(session, &Editor::projectChanged, this, &TimelineView::rebuild);
        connect(session, &Editor::missingChanged, this, &TimelineView::rebuild);
        connect(session, &Editor::openVideoChanged, this, &TimelineView::opened);
        connect(session, &Editor::zoomChanged, this, &TimelineView::rescale);
        connect(session, &Editor::loudnessChanged, this, &QQuickItem::update);
        connect(session, &Editor::pickedChanged, this, &QQuickItem::update);
        connect(session, &Editor::morePickedChanged, this, &QQuickItem::update);
        connect(&session->playback, &Playback::timeChanged, this, &TimelineView::playheadChanged);
    }
    rebuild();
    emit editorChanged();
}

void TimelineView::setFootage(QObject* footage) {
    setPictures(qobject_cast<FootagePictures*>(footage));
}

void TimelineView::setColours(const QVariantMap& colours) {
    theme = colours;
    paints = TimelineTheme::of(colours);
    update();
    emit coloursChanged();
}

void TimelineView::opened() {
    fitted = false;
    rebuild();
}

void TimelineView::rebuild() {
    const auto* video = session ? session->video() : nullptr;
    TimelineLayout made;
    if (video) {
        const auto book = [this](const std::string& id, std::int64_t version) {
            return facts(id, version, session->package());
        };
        made =
            TimelineLayout::of({session->project(), *video, session->missing(), *said->of(session->project()),
                                book, TimelineLook::current(), Settings::quietLeast()});
    }
    if (made == layout && !(video && !fitted)) return;
    const bool sameTracks = made.tracks == layout.tracks && made.length == layout.length;
    layout = std::move(made);
    if (!fitted && layout.length > 0) fit();
    if (!sameTracks) emit tracksChanged();
    emit spanChanged();
    emit playheadChanged();
    update();
}

void TimelineView::fit() {
    if (!session || width() <= margin || layout.length <= 0) return;
    fitted = true;
    const double scale = std::clamp((width() - margin) / layout.length, leastScale, fittedMost);
    span.from = 0;
    session->setZoom(scale / standardScale);
    rescale();
}

void TimelineView::rescale() {
    span.scale = session ? std::clamp(session->zoom() * standardScale, leastScale, mostScale) : standardScale;
    span.width = width();
    span.from =
        std::clamp(span.from, 0.0, std::max(layout.length + margin / span.scale - width() / span.scale, 0.0));
    emit spanChanged();
    emit playheadChanged();
    update();
}

void TimelineView::zoomRound(double factor, double x) {
    if (!session) return;
    const double time = span.time(x);
    const double scale = std::clamp(span.scale * factor, leastScale, mostScale);
    span.from = std::max(time - x / scale, 0.0);
    session->setZoom(scale / standardScale);
    rescale();
}

void TimelineView::zoomStep(bool in) {
    const double x = playheadX();
    zoomRound(in ? zoomFactor : 1 / zoomFactor, x >= 0 && x <= width() ? x : width() / 2);
}

void TimelineView::follow() {
    const double x = playheadX();
    if (x >= 0 && x <= width() - 2) return;
    setScroll(session->playback.time() - width() / span.scale / 10);
}

void TimelineView::setScroll(double seconds) {
    const double before = span.from;
    span.from = std::max(seconds, 0.0);
    rescale();
    if (span.from != before) update();
}

void TimelineView::setRowsAbove(double points) {
    const double now = std::clamp(points, 0.0, std::max(layout.height - height(), 0.0));
    if (now == above) return;
    above = now;
    emit spanChanged();
    update();
}

void TimelineView::scrollBy(double seconds) {
    if (seconds != 0) setScroll(span.from + seconds);
}

double TimelineView::contentWidth() const {
    return layout.length * span.scale + margin;
}

double TimelineView::playheadX() const {
    return session ? span.x(session->playback.time()) : -1;
}

double TimelineView::timeAt(double x) const {
    return span.time(x);
}

double TimelineView::skimmerX() const {
    const auto at = session ? session->playback.skimmed() : std::nullopt;
    return at ? span.x(*at) : -1;
}

double TimelineView::dropX() const {
    return drag && drag->dropLine() ? span.x(*drag->dropLine()) : -1;
}

double TimelineView::snapX() const {
    return drag && drag->snapLine() ? span.x(*drag->snapLine()) : -1;
}

QRectF TimelineView::band() const {
    const auto band = drag ? drag->band() : std::nullopt;
    if (!band) return {};
    return {span.x(band->from), band->top - above, (band->to - band->from) * span.scale,
            band->bottom - band->top};
}

QVariantList TimelineView::tracks() const {
    QVariantList list;
    for (const auto& track : layout.tracks)
        list.append(QVariantMap{{"name", rowNames[static_cast<int>(track.row)]},
                                {"top", track.top},
                                {"height", track.height},
                                {"lane", laneOf(track.row)}});
    return list;
}

DrawList TimelineView::drawList() {
    if (!session || paints.blocks.empty()) return {};
    auto list = TimelineScene::rows(layout, span, TimelinePicks::all(*session), paints);
    list.moveBy(0, -above);
    const auto ruler = TimelineScene::ruler(span, paints);
    list.items.insert(list.items.end(), ruler.items.begin(), ruler.items.end());
    return list;
}

void TimelineView::geometryChange(const QRectF& now, const QRectF& before) {
    DrawnView::geometryChange(now, before);
    if (now.size() == before.size()) return;
    span.width = width();
    if (!fitted && layout.length > 0)
        fit();
    else
        rescale();
}

// ------------------------------------------------------------------------ mouse --

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
    if (session->playback.skimmed()) session->playback.endScrub();
    const auto tool = session->tool();
    if (event->button() == Qt::MiddleButton) session->setTool(EditingTool::hand);
    drag->press(layout, span, at, modifiers(event->modifiers()));
    session->setTool(tool);
    emit dragChanged();
}

void TimelineView::mouseMoveEvent(QMouseEvent* event) {
    if (!drag || !drag->active()) return;
    scrollBy(drag->move(layout, span, point(event->position()), modifiers(event->modifiers())));
    emit dragChanged();
}

void TimelineView::mouseReleaseEvent(QMouseEvent*) {
    if (!drag) return;
    drag->release();
    emit dragChanged();
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
    if (!drag || !drag->active()) return false;
    drag->cancel();
    emit dragChanged();
    return true;
}

void TimelineView::hoverMoveEvent(QHoverEvent* event) {
    showCursor(event->position());
    if (!session || !session->skimming() || !session->playback.isLoaded() || session->playback.rate() != 0)
        return;
    const double time = span.time(event->position().x());
    if (time >= 0 && time < layout.length)
        session->playback.skim(time);
    else if (session->playback.skimmed())
        session->playback.endScrub();
    emit playheadChanged();
}

void TimelineView::hoverLeaveEvent(QHoverEvent*) {
    if (session && session->playback.skimmed()) session->playback.endScrub();
    emit playheadChanged();
}

void TimelineView::showCursor(const QPointF& position) {
    using Grip = TimelineDrag::Grip;
    const auto grip = drag ? drag->grip(layout, span, point(position)) : Grip::none;
    if (grip == Grip::start || grip == Grip::end)
        setCursor(Qt::SizeHorCursor);
    else if (grip == Grip::pan)
        setCursor(Qt::OpenHandCursor);
    else if (session && session->tool() == EditingTool::blade)
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
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

}
