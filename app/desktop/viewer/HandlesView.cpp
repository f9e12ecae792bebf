#include "app/desktop/viewer/HandlesView.h"

#include "app/desktop/viewer/ArrowStep.h"
#include "app/desktop/viewer/PictureHit.h"
#include "app/editor/commands/CaptionCommands.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "core/model/Settings.h"
#include "core/model/VideoTime.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/stage/PlaybookMedia.h"

#include <QCursor>
#include <QLineF>
#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

using Grip = PictureBox::PictureGrip;

constexpr double reach = 8;         ///< points
constexpr double knobDistance = 22; ///< points above the box
constexpr double snapReach = 6;     ///< points
constexpr double dragFrom = 4;      ///< points before a press is a drag
constexpr double nudge = 0.001;     ///< of the frame
constexpr double nudgeFar = 0.01;

/// The parameter of an overlay's playbook that is its text.
std::optional<std::string> textParameter(const PlacedOverlay& placed) {
    if (!placed.playbook().params) return {};
    for (const auto& [name, param] : *placed.playbook().params)
        if (param.type == "text") return name;
    return {};
}

}

HandlesView::HandlesView(QQuickItem* parent) : QQuickItem(parent), media(std::make_shared<PlaybookMedia>()) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
    // What has the keys can't be taken out of the walk by Tab: it is once they are elsewhere.
    const auto offer = [this] {
        if (shown() || !hasActiveFocus()) setActiveFocusOnTab(shown());
    };
    connect(this, &HandlesView::boxChanged, this, offer);
    connect(this, &QQuickItem::activeFocusChanged, this, offer);
}

HandlesView::~HandlesView() {
    measuring.finish();
}

void HandlesView::setEditor(Editor* given) {
    if (given == session) return;
    if (session) {
        session->disconnect(this);
        session->playback.disconnect(this);
    }
    session = given;
    if (session) {
        connect(session, &Editor::pickedChanged, this, &HandlesView::remeasure);
        connect(session, &Editor::morePickedChanged, this, &HandlesView::remeasure);
        connect(session, &Editor::projectChanged, this, &HandlesView::remeasure);
        connect(session, &Editor::openVideoChanged, this, &HandlesView::remeasure);
        connect(&session->playback, &Playback::timeChanged, this, &HandlesView::follow);
        connect(&session->playback, &Playback::rateChanged, this, &HandlesView::follow);
    }
    emit editorChanged();
    remeasure();
}

double HandlesView::scale() const {
    const auto* video = session ? session->video() : nullptr; // with nothing picked there is no plan
    return std::max(width(), 1.0) / Plan::frameSize(video ? video->aspect : Video::Aspect::vertical).width;
}

double HandlesView::knobAbove() const {
    return knobDistance;
}

QPointF HandlesView::centre() const {
    return box ? box->centre() * scale() : QPointF();
}

QSizeF HandlesView::boxSize() const {
    return box ? box->size() * scale() : QSizeF();
}

std::optional<Plan> HandlesView::planNow() const {
    const auto* video = session ? session->video() : nullptr;
    if (!video) return {};
    return Plan::video(*video, session->project(), Settings::captionFonts(), session->package());
}

/// What the thing looks like is measured aside; where it stands follows at once.
void HandlesView::remeasure() {
    const auto picked = session && session->morePicked().empty() ? session->picked() : std::nullopt;
    const bool placeable =
        picked && (picked->kind == Pick::Kind::overlay || picked->kind == Pick::Kind::caption);
    if (!placeable) {
        pick.reset();
        measured.reset();
        plan.reset();
        return follow();
    }
    if (picked != pick) measured.reset();
    pick = picked;
    plan = planNow();
    follow();
    if (!plan || grip != Grip::none) return;
    if (busy) {
        stale = true;
        return;
    }
    busy = true;
    stale = false;
    const auto found = std::make_shared<std::optional<PickedPlace::Measured>>();
    const PickedPlace::MeasureOrder order{*plan, *pick, session->playback.time()};
    measuring.start([found, order, kept = media] { *found = PickedPlace::measure(order, *kept); },
                    [this, found, asked = *pick] {
                        busy = false;
                        if (pick == asked) measured = *found;
                        follow();
                        if (stale) remeasure();
                    });
}

double HandlesView::shownTime() const {
    return session->playback.skimmed().value_or(session->playback.time());
}

void HandlesView::follow() {
    const auto before = box;
    box.reset();
    if (session && pick && plan && measured && session->playback.rate() == 0)
        if (const auto placed = PickedPlace::placed(*plan, *pick, shownTime()))
            box = PickedPlace::box(*measured, *placed, plan->frame);
    if (box != before || guides.x || guides.y) emit boxChanged();
}

void HandlesView::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    emit boxChanged();
}

QString HandlesView::words() const {
    if (!box || !plan) return {};
    const auto percent = [](double share) { return QString::number(std::round(share * 1000) / 10) + " %"; };
    return QString("%1, from left %2, from top %3, size %4, turned %5°")
        .arg(pick->kind == Pick::Kind::caption ? "Caption" : "Overlay",
             percent(box->centre().x() / plan->frame.width), percent(box->centre().y() / plan->frame.height),
             percent(box->scale))
        .arg(std::round(box->turn));
}

// ------------------------------------------------------------------------- hand --

QString HandlesView::stepName() const {
    const QString thing = pick && pick->kind == Pick::Kind::caption ? "Caption" : "Overlay";
    return (grip == Grip::size ? "Size " : grip == Grip::turn ? "Turn " : "Move ") + thing;
}

/// A piece of a drag: the move of what is picked, as it follows from the box as it began.
void HandlesView::place(const PictureBox& to) {
    if (!plan || !pick || !measured) return;
    const auto move = PlacedMove::changed(startMove, start, to, plan->frame, measured->restY);
    if (pick->kind == Pick::Kind::overlay)
        return LookCommands::dragLook(*session, [&](Look& look) {
            for (auto& overlay : look.overlays.edit())
                if (overlay.id == pick->id) overlay.move = move;
        });
    const auto* cue = PickedPlace::cueOf(*plan, *pick, session->playback.time());
    const auto piece = cue && cue->byHand && cue->piece ? std::optional(*cue->piece) : std::nullopt;
    LookCommands::dragLook(*session, [&](Look& look) {
        CaptionCommands::change(look, pick->id, [&](CaptionLine& line) {
            const bool ofPiece = piece && line.pieces && std::size_t(*piece) < line.pieces->size();
            (ofPiece ? (*line.pieces)[std::size_t(*piece)].move : line.move) = move;
        });
    });
}

void HandlesView::mousePressEvent(QMouseEvent* event) {
    grip = box ? box->at(onFrame(event->position()), reach / scale(), knobDistance / scale()) : Grip::none;
    if (!session) return event->ignore();
    session->setFocus(Viewer::video);
    pressed = onFrame(event->position());
    clicking = true;
    if (grip == Grip::none) return;
    forceActiveFocus(Qt::MouseFocusReason);
    start = *box;
    startMove = PickedPlace::placed(*plan, *pick, shownTime())->move;
}

void HandlesView::mouseMoveEvent(QMouseEvent* event) {
    const auto at = onFrame(event->position());
    if (QLineF(at, pressed).length() * scale() >= dragFrom) clicking = false;
    if (grip == Grip::none || !plan || clicking) return;
    guides = {};
    if (grip == Grip::size) return place(start.sized(pressed, at, reach / scale()));
    if (grip == Grip::turn) return place(start.turned(pressed, at, event->modifiers() & Qt::ShiftModifier));
    auto to = start.movedBy(at - pressed);
    if (!(event->modifiers() & Qt::AltModifier))
        guides = PictureGuides::at(to.centre(), plan->frame, snapReach / scale());
    place(to.movedBy(guides.shift));
    emit boxChanged();
}

void HandlesView::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(clicking, false)) {
        grip = Grip::none;
        return pickAt(onFrame(event->position()), event->modifiers());
    }
    if (grip == Grip::none) return;
    const auto name = stepName().toStdString();
    grip = Grip::none;
    guides = {};
    session->closeDrag(name);
    emit boxChanged();
}

/// What is under the pointer is looked for aside: it has to be drawn to be known.
void HandlesView::pickAt(const QPointF& point, Qt::KeyboardModifiers held) {
    const auto shown = session && session->playback.rate() == 0 ? planNow() : std::nullopt;
    if (!shown) return;
    const double time = shownTime();
    const auto found = std::make_shared<std::optional<Pick>>();
    const PictureHit::HitOrder order{*shown, time, point};
    ++looking;
    measuring.start([found, order, kept = media] { *found = PictureHit::topmost(order, *kept); },
                    [this, found, held, turn = ++picking] {
                        --looking;
                        if (turn == picking && session) take(*found, held);
                    });
}

void HandlesView::take(const std::optional<Pick>& found, Qt::KeyboardModifiers held) {
    const TimelinePicks::Modifiers keys{bool(held & Qt::ShiftModifier), bool(held & Qt::ControlModifier),
                                        false};
    session->setInspecting(Inspecting::timeline);
    if (found) {
        if (keys.shift || keys.command || TimelinePicks::all(*session) != std::vector{*found})
            TimelinePicks::click(*session, *found, keys);
    } else if (pick && !keys.shift && !keys.command) {
        TimelinePicks::set(*session, {}); // beside it: its handles go
    }
}

void HandlesView::mouseUngrabEvent() {
    clicking = false;
    cancelDrag();
}

bool HandlesView::cancelDrag() {
    if (grip == Grip::none) return false;
    grip = Grip::none;
    guides = {};
    session->cancelDrag();
    emit boxChanged();
    return true;
}

void HandlesView::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto at = onFrame(event->position());
    if (!box || box->at(at, reach / scale(), knobDistance / scale()) == Grip::none) return event->ignore();
    if (!text().isEmpty()) emit editAsked();
}

void HandlesView::hoverMoveEvent(QHoverEvent* event) {
    if (!box) return unsetCursor();
    switch (box->at(onFrame(event->position()), reach / scale(), knobDistance / scale())) {
        case Grip::none:
            return unsetCursor();
        case Grip::body:
            return setCursor(Qt::SizeAllCursor);
        case Grip::size:
            return setCursor(BoxHandles::cursor(
                BoxHandles::at(QRectF(QPointF(-boxSize().width() / 2, -boxSize().height() / 2), boxSize()),
                               box->local(onFrame(event->position())) * scale(), {reach, reach})));
        case Grip::turn:
            return setCursor(Qt::CrossCursor);
    }
}

void HandlesView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (box && !text().isEmpty()) emit editAsked();
        return;
    }
    auto by = ArrowStep::of(event->key());
    if (!box || by.isNull()) return event->ignore();
    by *= event->modifiers() & Qt::ShiftModifier ? nudgeFar : nudge;
    start = *box;
    startMove = PickedPlace::placed(*plan, *pick, shownTime())->move;
    place(start.movedBy({by.x() * plan->frame.width, by.y() * plan->frame.height}));
    session->endDragSoon(stepName().toStdString());
}

// ------------------------------------------------------------------------- text --

QString HandlesView::text() const {
    if (!plan || !pick) return {};
    if (const auto* placed = PickedPlace::overlayOf(*plan, *pick)) {
        const auto name = textParameter(*placed);
        const auto value = name ? placed->values->find(*name) : placed->values->end();
        return value == placed->values->end() ? QString() : QString::fromStdString(value->second);
    }
    const auto* line = pickedLine();
    return line ? QString::fromStdString(line->text) : QString();
}

/// What is said on the source that the caption is shown over.
std::optional<UUID> HandlesView::captionSource() const {
    const auto* cue = plan && pick ? PickedPlace::cueOf(*plan, *pick, session->playback.time()) : nullptr;
    const auto* video = cue ? session->video() : nullptr;
    const auto place = video ? VideoTime::locate((cue->start + cue->end) / 2, video->cuts) : std::nullopt;
    return place ? std::optional(video->cuts[place->cut].source) : std::nullopt;
}

const Line* HandlesView::pickedLine() const {
    const auto source = captionSource();
    if (!source) return nullptr;
    const auto& lines = session->project().transcript(*source).lines;
    const auto found = std::ranges::find(lines, pick->id, &Line::id);
    return found == lines.end() ? nullptr : &*found;
}

void HandlesView::setText(const QString& given) {
    if (!plan || !pick || given == text()) return;
    if (const auto* placed = PickedPlace::overlayOf(*plan, *pick)) {
        const auto name = textParameter(*placed);
        if (!name) return;
        return LookCommands::changeLook(*session, "Change Text", [&](Look& look) {
            for (auto& overlay : look.overlays.edit()) {
                if (overlay.id != pick->id) continue;
                if (!overlay.values) overlay.values.emplace();
                (*overlay.values)[*name] = given.toStdString();
            }
        });
    }
    if (pickedLine()) FootageCommands::correct(*session, pick->id, *captionSource(), given.toStdString());
}

}
