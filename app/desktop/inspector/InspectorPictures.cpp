#include "app/desktop/inspector/InspectorPictures.h"

#include "app/desktop/drawn/Painted.h"
#include "app/desktop/inspector/RowMaker.h"
#include "app/editor/Editor.h"
#include "core/intake/samples/Loudness.h"
#include "core/model/Settings.h"
#include "core/model/ShownMoments.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/Stills.h"
#include "platform/image/draw/Bands.h"

#include <algorithm>
#include <cmath>
#include <exception>

namespace murbo {
namespace {

constexpr int restTime = 120;     // ms that the playhead and the project are still before anything is drawn
constexpr double cardSide = 168;  // pixels of a card's longer side: sharp at two device pixels a point
constexpr double largeSide = 360; // of the overlay's picture
constexpr double entrance = 0.5;  // seconds in which an overlay may still be coming in
constexpr QSize waveSize(560, 88);
constexpr const char* waveColour = "#7FC8A9";

template <class Record>
const Record* find(const List<Record>& list, const UUID& id) {
    const auto found = std::ranges::find(list, id, &Record::id);
    return found == list.end() ? nullptr : &*found;
}

QImage drawn(const Image& image, Size frame, double side) {
    const double scale = side / std::max(frame.width, frame.height);
    Bitmap target(std::max(static_cast<int>(std::lround(frame.width * scale)), 1),
                  std::max(static_cast<int>(std::lround(frame.height * scale)), 1));
    Bands::draw(image.transformed(Transform().scaled(scale, scale)), target);
    return Painted::image(target);
}

/// What a worker draws: a project as it stood, and the plans of one of its videos.
struct CardJob {
    Project project;
    std::set<UUID> missing;
    UUID video;
    double at = 0; ///< video seconds
    std::vector<Plan> plans;
    double side = 0;

    std::vector<QImage> carryOut() const try {
        const auto* of = find(project.videos, video);
        if (!of) return {};
        std::vector<QImage> pictures;
        for (const auto& image : Stills::planned({*of, project, missing}, at, plans))
            pictures.push_back(drawn(image, plans.front().frame, side));
        return pictures;
    } catch (const std::exception&) {
        return {}; // what can't be drawn has no picture
    }
};

/// All layouts: the plain ones, then those of the library.
std::vector<LayoutCard> allLayouts() {
    std::vector<LayoutCard> list;
    for (const auto raw : rawTexts(Shot::Layout{}))
        list.push_back({std::string(raw), RowMaker::titled(raw), {}});
    for (const auto& book : Playbooks::library())
        if (book.playbook.kind == "layout")
            list.push_back({book.id(), RowMaker::said(book.playbook.name), {}});
    return list;
}

/// A video that is framed by one shot throughout, with nothing else on it.
Plan framedPlan(const Editor& editor, Shot shot, const std::string& layout) {
    auto video = *editor.video();
    if (const auto plain = fromRawText<Shot::Layout>(layout)) {
        shot.layout = *plain;
        shot.playbook.reset();
    } else if (shot.playbook != layout) {
        shot.playbook = layout;
        shot.version.reset();
        shot.values.reset();
        if (const auto book = Playbooks::find(layout)) shot.version = book->version();
    }
    shot.move.reset();
    shot.transition.reset();
    video.look.emplace();
    video.look->captions.on = false;
    if (!video.cuts.empty()) {
        std::tie(shot.source, shot.at) = std::pair(video.cuts[0].source, video.cuts[0].start);
        video.look->shots.edit().push_back(shot);
    }
    return Plan::video(video, editor.project(), Settings::captionFonts(), editor.package());
}

QImage waveOf(const std::filesystem::path& file) try {
    const Loudness loudness{Loudness::measure(file, Loudness::perSecond), Loudness::perSecond};
    if (loudness.levels.empty()) return {};
    const double length = static_cast<double>(loudness.levels.size()) / Loudness::perSecond;
    return Painted::wave({QRectF({0, 0}, QSizeF(waveSize)), UUID(), 0, length, QColor(waveColour)}, loudness,
                         1);
} catch (const std::exception&) {
    return {};
}

}

InspectorPictures::InspectorPictures(Editor& session) : editor(session) {
    pool.setMaxThreadCount(1);
    soon.setSingleShot(true);
    soon.setInterval(restTime);
    connect(&soon, &QTimer::timeout, this, &InspectorPictures::drawNow);
    for (const auto signal : {&EditorFields::pickedChanged, &EditorFields::morePickedChanged,
                              &EditorFields::openVideoChanged, &EditorFields::missingChanged})
        connect(&editor, signal, this, &InspectorPictures::wish);
    connect(&editor, &Editor::projectChanged, this, &InspectorPictures::wish);
    connect(&editor, &Editor::projectChanged, this, &InspectorPictures::shapeChanged);
    connect(&editor, &EditorFields::openVideoChanged, this, &InspectorPictures::shapeChanged);
    connect(&editor.playback, &Playback::timeChanged, this, &InspectorPictures::wish);
    connect(&editor.playback, &Playback::rateChanged, this, &InspectorPictures::wish);
    connect(this, &InspectorPictures::watchedChanged, this, &InspectorPictures::wish);
}

InspectorPictures::~InspectorPictures() {
    pool.clear();
    pool.waitForDone();
}

double InspectorPictures::shape() const {
    if (!editor.video()) return 1;
    const auto frame = Plan::frameSize(editor.video()->aspect);
    return frame.width / frame.height;
}

void InspectorPictures::wish() {
    if (!watched || editor.playback.rate() != 0 || !editor.video() || !editor.picked()) return;
    // The cards stand at once, so that nothing moves when their pictures come.
    if (editor.picked()->kind == Pick::Kind::shot && cards.rows().empty()) cards.assign(allLayouts());
    soon.start();
}

void InspectorPictures::drawNow() {
    const auto* video = editor.video();
    const auto pick = editor.picked();
    if (!watched || !video || !pick || !video->look || editor.playback.rate() != 0) return;
    const auto& look = *video->look;
    if (pick->kind == Pick::Kind::shot) {
        if (const auto* shot = find(look.shots, pick->id)) drawLayouts(*shot);
    } else if (pick->kind == Pick::Kind::overlay) {
        if (const auto* overlay = find(look.overlays, pick->id)) drawOverlay(*overlay);
    } else if (pick->kind == Pick::Kind::sound || pick->kind == Pick::Kind::music) {
        const auto& cues = pick->kind == Pick::Kind::music ? look.music : look.sounds;
        if (const auto* cue = find(cues, pick->id)) drawWave(*cue);
    }
}

void InspectorPictures::drawLayouts(const Shot& shot) {
    auto wanted = allLayouts();
    CardJob job{editor.project(), editor.missing(), editor.video()->id, editor.playback.time(), {}, cardSide};
    for (auto& card : wanted) {
        job.plans.push_back(framedPlan(editor, shot, card.id));
        for (const auto& old : cards.rows())
            if (old.id == card.id) card.picture = old.picture; // until the new one is there
    }
    cards.assign(std::move(wanted));
    pool.clear();
    pool.start([this, mine = ++order, job = std::move(job)] {
        QMetaObject::invokeMethod(
            this,
            [this, mine, pictures = job.carryOut()]() mutable { take(mine, std::move(pictures), true); },
            Qt::QueuedConnection);
    });
}

/// Over the video at the playhead, or in the middle of its own time where it doesn't show whole there.
void InspectorPictures::drawOverlay(const Overlay& overlay) {
    const auto& video = *editor.video();
    const auto start = ShownMoments(video.cuts).on(overlay.source, overlay.at);
    if (!start) return take(++order, {QImage()}, false);
    const double time = editor.playback.time();
    const double edge = std::min(overlay.length / 4, entrance);
    const bool on = time >= *start + edge && time < *start + overlay.length - edge;
    auto plan = Plan::video(video, editor.project(), Settings::captionFonts(), editor.package());
    CardJob job{editor.project(),  editor.missing(), video.id, on ? time : *start + overlay.length / 2,
                {std::move(plan)}, largeSide};
    pool.clear();
    pool.start([this, mine = ++order, job = std::move(job)] {
        QMetaObject::invokeMethod(
            this,
            [this, mine, pictures = job.carryOut()]() mutable { take(mine, std::move(pictures), false); },
            Qt::QueuedConnection);
    });
}

void InspectorPictures::take(std::int64_t made, std::vector<QImage> pictures, bool layouts) {
    if (made != order || pictures.empty()) return;
    if (!layouts) {
        overlayPicture = std::move(pictures.front());
        emit overlayChanged();
        return;
    }
    auto drawn = cards.rows();
    for (std::size_t at = 0; at < std::min(drawn.size(), pictures.size()); ++at)
        drawn[at].picture = std::move(pictures[at]);
    cards.assign(std::move(drawn));
}

void InspectorPictures::drawWave(const SoundCue& cue) {
    if (cue.file == waveFile) return;
    waveFile = cue.file;
    wavePicture = {};
    emit waveChanged();
    std::filesystem::path file = cue.file;
    if (file.is_relative() && editor.package()) file = *editor.package() / file;
    pool.start([this, mine = waveFile, file] {
        QMetaObject::invokeMethod(
            this,
            [this, mine, picture = waveOf(file)] {
                if (mine != waveFile) return;
                wavePicture = picture;
                emit waveChanged();
            },
            Qt::QueuedConnection);
    });
}

}
