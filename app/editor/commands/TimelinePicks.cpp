#include "app/editor/commands/TimelinePicks.h"

#include "app/editor/commands/PickWords.h"
#include "core/model/Settings.h"
#include "core/model/ShownMoments.h"
#include "core/model/VideoTime.h"
#include "core/model/edits/LookEdits.h"
#include "core/playbooks/Playbooks.h"
#include "core/render/plan/CaptionCue.h"
#include "core/render/plan/PlacedShot.h"
#include "core/render/plan/Snapping.h"

#include <algorithm>
#include <map>

namespace murbo::TimelinePicks {
namespace {

/// Collects what a rubber band catches.
struct Band {
    double from;
    double to;
    std::vector<Pick> picks;

    void meet(Pick::Kind kind, const UUID& id, double start, double end) {
        const Pick pick{kind, id, {}};
        if (from < end && start < to && std::find(picks.begin(), picks.end(), pick) == picks.end())
            picks.push_back(pick);
    }
};

void catchShots(Band& band, const Video& video, const Look& look) {
    for (const auto& placed : PlacedShot::place(look.shots, video.cuts))
        if (!placed.implicit) band.meet(Pick::Kind::shot, placed.shot.id, placed.start, placed.end);
}

void catchCuts(Band& band, const Video& video) {
    double start = 0;
    for (const auto& cut : video.cuts) {
        band.meet(Pick::Kind::cut, cut.id, start, start + cut.length());
        start += cut.length();
    }
}

void catchOverlays(Band& band, const Look& look, const ShownMoments& shown,
                   const std::optional<std::filesystem::path>& package) {
    std::map<std::pair<std::string, std::int64_t>, bool> known; // looking one up reads its file
    const auto isThere = [&](const Overlay& overlay) {
        const auto [found, isNew] = known.try_emplace({overlay.playbook, overlay.version});
        if (isNew) found->second = Playbooks::book(overlay.playbook, overlay.version, package).has_value();
        return found->second;
    };
    for (const auto& overlay : look.overlays) {
        const auto start = shown.on(overlay.source, overlay.at);
        if (start && isThere(overlay))
            band.meet(Pick::Kind::overlay, overlay.id, *start, *start + overlay.length);
    }
}

void catchSounds(Band& band, const List<SoundCue>& cues, Pick::Kind kind, const ShownMoments& shown,
                 double end) {
    for (const auto& cue : cues) {
        const auto start = shown.on(cue.source, cue.at);
        if (!start) continue;
        const auto unknown = kind == Pick::Kind::sound ? *start + LookEdits::unknownSound : end;
        band.meet(kind, cue.id, *start, cue.length ? *start + *cue.length : unknown);
    }
}

bool snaps(const Editor& editor, double scale, const Modifiers& held) {
    return editor.snapping() && !held.option && scale > 0;
}

}

Modifiers& held() {
    static Modifiers keys;
    return keys;
}

std::vector<Pick> all(const Editor& editor) {
    auto picks = editor.morePicked();
    if (editor.picked()) picks.push_back(*editor.picked());
    return picks;
}

bool isPicked(const Editor& editor, const Pick& pick) {
    const auto picks = all(editor);
    return std::find(picks.begin(), picks.end(), pick) != picks.end();
}

void set(Editor& editor, std::vector<Pick> picks) {
    std::optional<Pick> main;
    if (!picks.empty()) {
        main = picks.back();
        picks.pop_back();
    }
    editor.setMorePicked(std::move(picks));
    editor.setPicked(main);
}

void click(Editor& editor, const Pick& pick, const Modifiers& keys) {
    if (!keys.shift && !keys.command) return set(editor, {pick});
    auto picks = all(editor);
    const bool was = std::erase(picks, pick) > 0;
    if (!was || (keys.shift && !keys.command)) picks.push_back(pick);
    set(editor, std::move(picks));
}

std::vector<Pick> caught(const Editor& editor, double from, double to, const std::set<TimelineRow>& rows) {
    const auto* video = editor.video();
    if (!video) return {};
    static const Look none;
    const auto& look = video->look ? *video->look : none;
    const ShownMoments shown(video->cuts);
    Band band{std::min(from, to), std::max(from, to), {}};
    if (rows.contains(TimelineRow::shots)) catchShots(band, *video, look);
    if (rows.contains(TimelineRow::picture)) catchCuts(band, *video);
    if (rows.contains(TimelineRow::captions))
        for (const auto& cue : CaptionCue::cues(*video, editor.project()))
            band.meet(Pick::Kind::caption, cue.line, cue.start, cue.end);
    if (rows.contains(TimelineRow::overlays)) catchOverlays(band, look, shown, editor.package());
    if (rows.contains(TimelineRow::sounds))
        catchSounds(band, look.sounds, Pick::Kind::sound, shown, video->length());
    if (rows.contains(TimelineRow::music))
        catchSounds(band, look.music, Pick::Kind::music, shown, video->length());
    return band.picks;
}

std::string inWords(const Editor& editor) {
    return PickWords::of(editor, all(editor));
}

double snapped(const Editor& editor, double time, double scale, const std::optional<UUID>& except,
               const std::optional<UUID>& caption, const Modifiers& keys) {
    const auto* video = editor.video();
    if (!video || !snaps(editor, scale, keys)) return time;
    std::vector<double> targets;
    for (const auto& cue : CaptionCue::cues(*video, editor.project())) {
        if (cue.line == caption) continue;
        targets.push_back(cue.start);
        targets.push_back(cue.end);
    }
    const auto edges = Snapping::targets(*video, editor.project().bookmarks, except);
    targets.insert(targets.end(), edges.begin(), edges.end());
    targets.push_back(editor.playback.time());
    return Snapping::nearest(time, targets, Settings::snapReach() / scale);
}

double snappedEdge(const Editor& editor, double time, const UUID& source, double scale,
                   const Modifiers& keys) {
    if (!snaps(editor, scale, keys)) return time;
    return Snapping::nearest(time, Snapping::lineEdges(&editor.project().transcript(source)),
                             Settings::snapReach() / scale);
}

}
