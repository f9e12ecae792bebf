#include "app/desktop/timeline/TimelineView.h"

#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/timeline/SpokenTimes.h"
#include "app/desktop/timeline/TimelineAppearance.h"
#include "app/desktop/timeline/TimelineTheme.h"
#include "core/ai/Said.h"
#include "core/model/Settings.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/plan/Plan.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace murbo {
namespace {

constexpr double standardScale = 20; ///< points a second at zoom 1
constexpr double minScale = 0.02;
constexpr double maxScale = 600;
constexpr double maxFitted = 80; ///< a video of a few seconds is not blown up further
constexpr double margin = 40;    ///< points left free after the end
constexpr double zoomFactor = 1.25;

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
    TimelineLayout::BookFacts facts{book->playbook.name, book->playbook.layered()};
    if (book->playbook.params)
        for (const auto& [name, param] : *book->playbook.params)
            if (param.type == "media" && facts.media.empty())
                std::tie(facts.media, facts.usualMedia) = std::pair(name, param.value.value_or(""));
    return facts;
}

}

TimelineView::TimelineView(QQuickItem* parent) : DrawnView(parent), spoken(std::make_unique<SpokenTimes>()) {
    paintOn(Qt::black);
    setAcceptedMouseButtons(Qt::LeftButton | Qt::MiddleButton | Qt::RightButton);
    setAcceptHoverEvents(true);
    setActiveFocusOnTab(true);
    clock.start();
    parting.setInterval(16);
    connect(&parting, &QTimer::timeout, this, &TimelineView::part);
    running.setInterval(16);
    connect(&running, &QTimer::timeout, this, &TimelineView::runAlong);
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
        connect(session, &Editor::skimmingChanged, this, [this] {
            if (!session->skimming() && session->playback.skimmed()) session->playback.endScrub();
            emit playheadChanged();
        });
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
    paintOn(paints.canvas);
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
        Plan files;
        files.project = session->package();
        made = TimelineLayout::of({session->project(), *video, session->missing(), *session->allSaid(), book,
                                   TimelineLook::current(), Settings::quietLeast(),
                                   [&files](const std::string& name) { return files.file(name); },
                                   spoken.get()});
    }
    if (made == layout && !(video && !fitted)) return;
    const bool sameTracks = made.tracks == layout.tracks && made.length == layout.length;
    layout = std::move(made);
    setRowsAbove(above); // there may be fewer
    if (!fitted && layout.length > 0) fit();
    if (!sameTracks) emit tracksChanged();
    emit spanChanged();
    emit playheadChanged();
    update();
}

void TimelineView::fit() {
    if (!session || width() <= margin || layout.length <= 0) return;
    fitted = fits = true;
    const double scale = std::clamp((width() - margin) / layout.length, minScale, maxFitted);
    span.from = 0;
    session->setZoom(scale / standardScale);
    rescale();
}

void TimelineView::rescale() {
    span.scale = session ? std::clamp(session->zoom() * standardScale, minScale, maxScale) : standardScale;
    span.width = width();
    span.from = inReach(span.from);
    emit spanChanged();
    emit playheadChanged();
    update();
}

void TimelineView::zoomRound(double factor, double x) {
    if (!session) return;
    fits = false;
    const double time = span.time(x);
    const double scale = std::clamp(span.scale * factor, minScale, maxScale);
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

double TimelineView::inReach(double from) const {
    return std::clamp(from, 0.0, std::max(layout.length + margin / span.scale - width() / span.scale, 0.0));
}

/// Where it stays nothing is said: what follows a playhead beyond the end would never come to rest.
void TimelineView::setScroll(double seconds) {
    const double from = inReach(seconds);
    if (from == span.from) return;
    span.from = from;
    rescale();
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
    if (foreignDrop) return span.x(*foreignDrop);
    const auto room = partedNow().room;
    return room ? span.x(room->from) : -1;
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

void TimelineView::setAppearance(QObject* given) {
    if (given == look) return;
    if (look) look->disconnect(this);
    look = given;
    if (auto* chosen = qobject_cast<TimelineAppearance*>(given))
        connect(chosen, &TimelineAppearance::changed, this, &TimelineView::rebuild);
    emit editorChanged();
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

std::optional<PartedRow::Landing> TimelineView::landing() const {
    return foreignLanding ? foreignLanding : drag ? drag->landing() : std::nullopt;
}

/// The cuts go on sliding to where the hand has them.
void TimelineView::part() {
    const auto now = static_cast<double>(clock.elapsed());
    parted.aim(layout, landing(), now);
    if (!parted.moving(now))
        parting.stop();
    else if (!parting.isActive())
        parting.start();
    update();
}

TimelineScene::Parted TimelineView::partedNow() const {
    TimelineScene::Parted found;
    found.aside = parted.aside(static_cast<double>(clock.elapsed()));
    if (drag) found.ghost = drag->ghost();
    const auto aim = landing();
    if (!aim) return found;
    found.carried = aim->cut;
    found.room = PartedRow::room(layout, *aim);
    return found;
}

DrawList TimelineView::drawList() {
    if (!session || paints.blocks.empty()) return {};
    auto list = TimelineScene::rows(layout, span, TimelinePicks::all(*session), paints, partedNow());
    if (const auto* trimmed = drag ? drag->trimmed(layout) : nullptr) {
        const auto free = TimelineScene::freeFootage(layout, span, *trimmed, paints);
        list.items.insert(list.items.end(), free.items.begin(), free.items.end());
    }
    list.moveBy(0, -above);
    const auto ruler = TimelineScene::ruler(span, paints);
    list.items.insert(list.items.end(), ruler.items.begin(), ruler.items.end());
    return list;
}

void TimelineView::geometryChange(const QRectF& now, const QRectF& before) {
    DrawnView::geometryChange(now, before);
    if (now.size() == before.size()) return;
    setRowsAbove(above);
    span.width = width();
    if ((fits || !fitted) && layout.length > 0)
        fit();
    else
        rescale();
}

}
