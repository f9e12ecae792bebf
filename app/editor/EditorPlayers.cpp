#include "app/editor/Editor.h"
#include "app/editor/playback/PlayerItem.h"
#include "core/model/Settings.h"
#include "core/render/footage/Filmstrip.h"
#include "core/render/plan/Plan.h"

#include <exception>

// What the two players of a session show.

namespace murbo {

void Editor::openOnTimeline(const std::optional<UUID>& video) {
    if (video == openVideo()) return;
    setMorePicked({});
    set(values.openVideo, video, &EditorFields::openVideoChanged);
    setPicked(std::nullopt);
    reloadVideo(0);
}

void Editor::setMonitoring(const Monitoring& monitoring) {
    if (monitoring == values.monitoring) return;
    set(values.monitoring, monitoring, &EditorFields::monitoringChanged);
    reloadVideo(std::nullopt, true);
}

void Editor::redraw() {
    if (const auto* open = video())
        playback.refresh(Plan::video(*open, live, Settings::captionFonts(), folder));
}

void Editor::reloadVideo(std::optional<double> at, bool remixing, std::function<void()> then) {
    set(values.problem, std::optional<std::string>(), &EditorFields::problemChanged);
    const auto* open = video();
    if (open && !open->cuts.empty()) {
        reload(at, remixing, std::move(then));
        return;
    }
    shownReload = ++lastReload;
    playback.unload();
}

QCoro::Task<> Editor::reload(std::optional<double> at, bool remixing, std::function<void()> then) {
    const auto hold = busy();
    const auto turn = ++lastReload;
    const auto shown = *video();
    const auto making = [shown, project = live, gone = missing(), package = folder,
                         soloed = monitoring().soloed] {
        return PlayerItem::video(shown, project, gone, Settings::captionFonts(), package, soloed);
    };
    try {
        auto item = co_await background.run(making);
        if (openVideo() != shown.id || turn < shownReload) co_return;
        shownReload = turn;
        if (!remixing || !playback.remix(item)) playback.load(std::move(item), at.value_or(playback.time()));
        // While it was made, a mere redraw may have gone to the item before it.
        if (const auto* now = video(); now && *now != shown) redraw();
        if (then) then();
    } catch (const std::exception& error) {
        if (turn < lastReload) co_return;
        set(values.problem, std::optional("This video could not be played. " + std::string(error.what())),
            &EditorFields::problemChanged);
    }
}

/// A drag of a level or a sound is heard while the hand moves: one mix after the other, the last one last.
QCoro::Task<> Editor::hearDrag() {
    mixAgain = true;
    if (mixing) co_return;
    const auto hold = busy();
    mixing = true;
    const std::function<void()> nothing;
    while (std::exchange(mixAgain, false) && dragStart && video() && !video()->cuts.empty())
        co_await reload(std::nullopt, true, nothing);
    mixing = false;
}

// --------------------------------------------------------------- the source player --

void Editor::holdClip(const std::optional<UUID>& held) {
    if (held == heldClip()) return;
    set(values.heldClip, held, &EditorFields::heldClipChanged);
    openSource(false);
}

void Editor::holdSource(const std::optional<UUID>& held) {
    if (held == heldSource()) return;
    set(values.heldSource, held, &EditorFields::heldSourceChanged);
    if (!this->held()) openSource(false); // else the clip is what is shown
}

void Editor::holdClipHere(const UUID& held) {
    set(values.heldClip, std::optional(held), &EditorFields::heldClipChanged);
    openSource(true);
}

void Editor::openSource(bool keepingTime) {
    const auto* clip = held();
    const auto* shown = clip           ? live.source(clip->source)
                        : heldSource() ? live.source(*heldSource())
                                       : nullptr;
    if (!shown) {
        ++lastSource;
        source.unload();
        return;
    }
    loadSource(*shown, clip ? Stretch{clip->start, clip->end} : Stretch{0, shown->length}, keepingTime);
}

QCoro::Task<> Editor::loadSource(Source shown, Stretch span, bool keepingTime) {
    const auto hold = busy();
    const auto turn = ++lastSource;
    const double at = keepingTime ? source.time() : span.from;
    if (source.source() == shown.id && source.isLoaded()) {
        source.setSpan(span);
        if (!keepingTime) source.seek(at);
        co_return;
    }
    source.await(span, at); // marks that are made before the footage is there are marks on it
    try {
        const auto making = [shown] { return PlayerItem::footage(shown); };
        auto item = co_await background.run(making);
        if (turn != lastSource) co_return;
        source.load(std::move(item), source.time());
        source.setSource(shown.id);
        source.setSpan(span);
    } catch (const std::exception& error) {
        if (turn != lastSource) co_return;
        emit sourceFailed(shown.id, QString::fromStdString(error.what()));
        say(shown.name() + " could not be played. " + error.what());
    }
}

const Loudness* Editor::loudness(const UUID& id) {
    const auto found = loudnessBySource.find(id);
    if (found != loudnessBySource.end()) return &found->second;
    const auto* wanted = live.source(id);
    if (wanted && measuring.insert(id).second) measure(*wanted);
    return nullptr;
}

QCoro::Task<> Editor::measure(Source measured) {
    Loudness found;
    try {
        const auto kept = folder ? std::optional(*folder / "cache") : std::nullopt;
        const auto listening = [measured, cache = kept, stop = ending.get_token()] {
            return Loudness::of(measured, cache, stop);
        };
        found = co_await background.run(listening);
    } catch (const std::exception&) {
        // What can't be read is silent; it is not measured again in this session.
    }
    const auto* now = live.source(measured.id);
    if (now && now->path != measured.path) co_return; // it was found at another place meanwhile
    loudnessBySource.emplace(measured.id, std::move(found));
    emit loudnessChanged();
}

Filmstrip* Editor::filmstrip(const UUID& id) {
    const auto* shown = live.source(id);
    if (!shown || missing().contains(id)) return nullptr; // it may be found at another place
    auto& strip = filmstrips[id];
    if (!strip) strip = std::make_unique<Filmstrip>(*shown, folder);
    return strip.get();
}

}
