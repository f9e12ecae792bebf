#include "app/editor/Editor.h"

#include "app/editor/playback/PreviewVolume.h"
#include "core/ai/SaidCache.h"
#include "core/model/edits/PlayerChange.h"
#include "core/model/edits/ProjectOperations.h"
#include "core/render/footage/Filmstrip.h"
#include "platform/base/Problem.h"

#include <algorithm>

namespace murbo {
namespace {

/// Where each source's file was found. It stays found, whatever an undo puts back.
using FoundFiles = std::map<UUID, std::pair<std::string, std::optional<Data>>>;

FoundFiles foundFiles(const Project& project) {
    FoundFiles found;
    for (const auto& source : project.sources) found[source.id] = {source.path, source.bookmark};
    return found;
}

void keepFiles(Project& project, const FoundFiles& files) {
    for (std::size_t at = 0; at < project.sources.size(); ++at) {
        const auto& source = project.sources[at];
        const auto found = files.find(source.id);
        if (found == files.end() || found->second == std::pair(source.path, source.bookmark)) continue;
        auto& put = project.sources.edit()[at];
        std::tie(put.path, put.bookmark) = found->second;
    }
}

/// The sources whose files are at another place than they were.
std::vector<UUID> moved(const Project& old, const Project& now) {
    std::vector<UUID> all;
    if (now.sources.same(old.sources)) return all;
    const auto files = foundFiles(old);
    for (const auto& source : now.sources)
        if (const auto was = files.find(source.id); was != files.end() && was->second.first != source.path)
            all.push_back(source.id);
    return all;
}

/// A history that can't be written is no failure: the project itself is safe, and the next change tries
/// again.
void write(const History& history, const std::filesystem::path& package) {
    try {
        ProjectPackage::writeHistory(history, package);
    } catch (const Problem&) {
        return;
    }
}

template <class Records>
auto find(const Records& records, const UUID& id) -> decltype(&records[0]) {
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const auto& one) { return one.id == id; });
    return found == records.end() ? nullptr : &*found;
}

bool soundsOtherwise(const Video& one, const Video& other) {
    static const Look none;
    const auto& look = one.look ? *one.look : none;
    const auto& changed = other.look ? *other.look : none;
    return look.mix != changed.mix || look.sounds != changed.sounds || look.music != changed.music;
}

}

Editor::Editor(Project project, std::set<UUID> missingSources, std::optional<std::filesystem::path> package,
               Save saving, const SoundPlayer::MakeOutput& sound, QObject* parent)
    : EditorFields(parent),
      playback(PlayerClock::computer, sound, sound ? &PreviewVolume::standard() : nullptr, nullptr),
      source(PlayerClock::computer, sound, sound ? &PreviewVolume::standard() : nullptr, nullptr),
      live(std::move(project)),
      folder(std::move(package)),
      save(std::move(saving)),
      saidCache(std::make_unique<SaidCache>()) {
    if (folder) steps = ProjectPackage::readHistory(*folder);
    values.missing = std::move(missingSources);
    if (!live.videos.empty()) values.openVideo = live.videos.front().id;
    if (!live.sources.empty()) values.sidebar = {Collection::sources, live.sources.front().id};
    for (auto* timer : {&settling, &historyWrite}) timer->setSingleShot(true);
    connect(&settling, &QTimer::timeout, this, &Editor::settle);
    connect(&historyWrite, &QTimer::timeout, this, &Editor::writeHistoryAside);
    reloadVideo(0);
}

Editor::~Editor() {
    work.cancelAll();
    ending.request_stop();
    background.finish();
    historyWriting.finish();
}

const Video* Editor::video() const {
    return openVideo() ? video(*openVideo()) : nullptr;
}

const Video* Editor::video(const UUID& id) const {
    return find(live.videos, id);
}

const Clip* Editor::clip(const UUID& id) const {
    return find(live.clips, id);
}

const Clip* Editor::held() const {
    return heldClip() ? clip(*heldClip()) : nullptr;
}

std::string Editor::title(const Clip& clip) const {
    return clip.title(clip.tag());
}

// ---------------------------------------------------------------------- changes --

void Editor::change(const std::string& name, const Change& body) {
    closeDrag();
    const auto old = live;
    try {
        body(live);
    } catch (...) {
        live = old;
        throw;
    }
    commit(name, old);
}

void Editor::commit(const std::string& name, const Project& old) {
    if (live == old) return;
    if (!groupStart) {
        steps.record(name, old, live);
        emit stepMade(QString::fromStdString(name), inSettling);
        emit historyChanged();
    }
    changed(old);
}

void Editor::apply(const Change& body) {
    const auto old = live;
    body(live);
    if (live == old) return;
    if (dragStart) body(*dragStart);
    if (groupStart) body(*groupStart);
    changed(old);
}

void Editor::group(const std::string& name, const std::function<void()>& body) {
    closeDrag();
    if (groupStart) return body();
    groupStart = live;
    try {
        body();
    } catch (...) {
        // What was done so far stays, as the step that it is.
        commit(name, *std::exchange(groupStart, std::nullopt));
        throw;
    }
    commit(name, *std::exchange(groupStart, std::nullopt));
}

void Editor::changed(const Project& old) {
    const auto shown = openVideo();
    save(live);
    historyWrite.start(historyTime);
    keepPicksValid();
    emit projectChanged();
    const auto found = moved(old, live);
    for (const auto& id : found) {
        measuring.erase(id);
        loudnessBySource.erase(id);
        if (source.source() != id) continue;
        source.unload();
        openSource(false);
    }
    if (!found.empty()) emit loudnessChanged();
    if (openVideo() == shown) return followWithPlayer(old);
    reloadVideo(0); // the first video has taken the place of one that is gone
}

void Editor::keepPicksValid() {
    if (picked() && !exists(*picked())) setPicked(std::nullopt);
    auto more = morePicked();
    std::erase_if(more, [&](const Pick& pick) { return !exists(pick); });
    setMorePicked(std::move(more));
    if (!video()) {
        const auto first = live.videos.empty() ? std::nullopt : std::optional(live.videos.front().id);
        set(values.openVideo, first, &EditorFields::openVideoChanged);
    }
}

void Editor::followWithPlayer(const Project& old) {
    const auto* now = video();
    if (!now) return reloadVideo(std::nullopt);
    switch (playerChange(*now, find(old.videos, now->id))) {
        case PlayerChange::redraw:
            return redraw();
        case PlayerChange::remix:
            return reloadVideo(std::nullopt, true);
        case PlayerChange::rebuild:
            return reloadVideo(std::nullopt);
    }
}

std::shared_ptr<const Said> Editor::allSaid() const {
    return saidCache->of(live);
}

bool Editor::exists(const Pick& pick) const {
    const auto* open = video();
    if (!open) return false;
    static const Look none;
    const auto& look = open->look ? *open->look : none;
    switch (pick.kind) {
        case Pick::Kind::cut:
            return find(open->cuts, pick.id);
        case Pick::Kind::shot:
            return find(look.shots, pick.id);
        case Pick::Kind::overlay:
            return find(look.overlays, pick.id);
        case Pick::Kind::sound:
            return find(look.sounds, pick.id);
        case Pick::Kind::music:
            return find(look.music, pick.id);
        case Pick::Kind::caption:
            return true; // worked out from what is said: a pick of one that went is harmless
    }
    return false;
}

// ------------------------------------------------------------------------ drags --

void Editor::beginDrag(const std::optional<std::string>& name) {
    if (dragStart) return;
    dragStart = live;
    dragName = name.value_or("Drag");
    emit historyChanged();
}

void Editor::dragPiece(const Change& body) {
    beginDrag(std::nullopt);
    body(live);
    emit projectChanged();
}

void Editor::dragAndRedraw(const Change& body) {
    const auto before = live;
    dragPiece(body);
    redraw();
    const auto* now = video();
    const auto* was = now ? find(before.videos, now->id) : nullptr;
    if (was && soundsOtherwise(*was, *now)) hearDrag();
}

void Editor::endDragSoon(const std::string& name) {
    settlingName = name;
    settling.start(settlingTime);
}

void Editor::settle() {
    inSettling = true;
    closeDrag(settlingName);
    inSettling = false;
}

bool Editor::closeDrag(const std::optional<std::string>& name) {
    if (!dragStart) return false;
    settling.stop();
    const auto start = *std::exchange(dragStart, std::nullopt);
    commit(name.value_or(dragName), start);
    emit historyChanged(); // where nothing came of it too
    return true;
}

void Editor::cancelDrag() {
    if (!dragStart) return;
    settling.stop();
    const auto dragged = std::exchange(live, *std::exchange(dragStart, std::nullopt));
    emit historyChanged();
    emit projectChanged();
    followWithPlayer(dragged);
}

std::optional<std::string> Editor::unfinished() const {
    return dragStart ? std::optional(dragName) : std::nullopt;
}

// ------------------------------------------------------------------------- undo --

void Editor::step(bool back) {
    closeDrag();
    const auto old = live;
    const auto name = takeStep(back);
    if (!name) return;
    say((back ? "Undid " : "Redid ") + *name);
    emit historyChanged();
    changed(old);
}

std::optional<std::string> Editor::takeStep(bool back) {
    const auto mutes = ProjectOperations::mutes(live);
    const auto files = foundFiles(live);
    auto name = back ? steps.undo(live) : steps.redo(live);
    if (!name) return name;
    ProjectOperations::keep(live, mutes);
    keepFiles(live, files);
    return name;
}

void Editor::writeHistory() {
    historyWrite.stop();
    historyWriting.finish();
    if (folder) write(steps, *folder);
}

void Editor::writeHistoryAside() {
    if (!folder) return;
    if (std::exchange(writingHistory, true)) return historyWrite.start(historyTime);
    historyWriting.start([kept = steps, package = *folder] { write(kept, package); },
                         [this] { writingHistory = false; });
}

// ------------------------------------------------------------------------ saying --

void Editor::say(const std::string& text) {
    setToast(text);
    emit said(QString::fromStdString(text));
}

void Editor::refuse(const std::string& text) {
    say(text);
    emit beeped();
}

Editor::Busy Editor::busy() {
    ++busyCount;
    return Busy(nullptr, [this](void*) {
        if (--busyCount == 0) emit idle();
    });
}

}
