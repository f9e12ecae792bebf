#include "app/editor/commands/CutCommands.h"

#include "app/editor/Timecode.h"
#include "app/editor/commands/Changes.h"
#include "app/editor/commands/OneLineJson.h"
#include "app/editor/commands/Row.h"
#include "app/editor/commands/VideoCommands.h"
#include "core/model/Settings.h"
#include "core/model/Times.h"
#include "core/model/edits/ProjectOperations.h"
#include "core/model/edits/VideoEdits.h"
#include "core/playbooks/Playbooks.h"

#include <algorithm>

#include <fmt/format.h>

namespace murbo::CutCommands {
namespace {

constexpr double shortestOffer = 0.1;
constexpr double shortestLeft = 0.3; ///< seconds between two quiet stretches that stay
constexpr double shortestGenerator = 0.2;
constexpr double standardGenerator = 3;
constexpr double longestGenerator = 3600; ///< seconds to which one is drawn out
constexpr double editTolerance = 0.01;
constexpr double trimPreview = 1.5; ///< seconds played on each side of an edit

/// Where the first cut that is put goes; the others follow it.
using Place = std::function<UUID(Video&, const Cut&)>;

UUID atEnd(Video& video, const Cut& cut) {
    return VideoEdits::insert(video, cut);
}

/// Its id is new where that of another cut.
Cut withFreeId(Cut cut, const Project& project) {
    for (const auto& video : project.videos)
        if (VideoEdits::index(video, cut.id)) cut.id = UUID::make();
    return cut;
}

UUID putAfter(Video& video, const std::optional<UUID>& last, const Cut& cut, const Place& place) {
    const auto after = last ? VideoEdits::index(video, *last) : std::nullopt;
    if (!after) return place(video, cut);
    return VideoEdits::insert(video, cut, static_cast<std::ptrdiff_t>(*after) + 1);
}

void putInto(Editor& editor, const std::vector<Cut>& cuts, const std::string& name, const Place& place) {
    if (!editor.video()) VideoCommands::create(editor, VideoCommands::lastAspect(), "Untitled Video");
    std::optional<UUID> last;
    editor.change(name, [&](Project& project) {
        auto& video = Changes::openVideo(editor, project);
        for (const auto& cut : cuts) last = putAfter(video, last, withFreeId(cut, project), place);
    });
    if (last) editor.setPicked(Pick{Pick::Kind::cut, *last, {}});
    editor.setRange(std::nullopt);
}

void put(Editor& editor, const std::vector<Cut>& cuts, std::string name, const Place& place) {
    if (name.empty()) name = cuts.size() == 1 ? "Add Clip" : "Add Clips";
    editor.group(name, [&] { putInto(editor, cuts, name, place); });
}

/// What is offered; with nothing, a toast says so and the list is empty.
std::vector<Cut> offeredOrRefused(Editor& editor) {
    auto cuts = offeredCuts(editor);
    if (cuts.empty()) editor.refuse("Pick a clip in the browser first");
    return cuts;
}

/// The cut of that id in the open video, or null.
const Cut* cutOf(const Editor& editor, const UUID& id) {
    const auto* video = editor.video();
    const auto at = video ? VideoEdits::index(*video, id) : std::nullopt;
    return at ? &video->cuts[*at] : nullptr;
}

void changeIn(Editor& editor, Project& project, const UUID& id, const GeneratorChange& change) {
    auto& video = Changes::openVideo(editor, project);
    if (const auto at = VideoEdits::index(video, id)) change(*video.cuts.edit()[*at].generator);
}

bool isGenerated(const Editor& editor, const UUID& id) {
    const auto* cut = cutOf(editor, id);
    return cut && cut->generator;
}

/// How far the end of a cut can go, in seconds on its source; nothing for one of a source that is not there.
std::optional<double> farthest(const Editor& editor, const Cut& cut) {
    if (cut.generator) return cut.start + longestGenerator;
    const auto* source = editor.project().source(cut.source);
    return source ? std::optional(source->length) : std::nullopt;
}

/// What the source player shows of an end of a cut: the last frame that stays, or the first. Nothing of a
/// generated one, which has no footage.
std::optional<TrimEdge> edgeOf(const Editor& editor, const Cut& cut, bool atEnd) {
    if (cut.generator) return {};
    return TrimEdge{cut.source, atEnd ? cut.end - 1 / editor.playback.frameRate() : cut.start};
}

/// A piece of a drag of one cut's ends, with what the source player then shows.
void dragEdges(Editor& editor, const UUID& id, bool atEnd,
               const std::function<void(Video&, double farthest)>& drag) {
    const auto* cut = cutOf(editor, id);
    const auto most = cut ? farthest(editor, *cut) : std::nullopt;
    if (!most) return;
    editor.dragPiece([&](Project& project) { drag(Changes::openVideo(editor, project), *most); });
    if (const auto* moved = cutOf(editor, id)) editor.setEdge(edgeOf(editor, *moved, atEnd));
}

std::string shorter(double seconds) {
    return seconds >= 60 ? Timecode::clock(seconds) : fmt::format("{:.1f} s", seconds);
}

}

std::optional<Cut> offered(const Editor& editor) {
    Cut cut;
    if (const auto* clip = editor.held()) {
        cut.source = clip->source;
        cut.start = clip->start;
        cut.end = clip->end;
    } else if (const auto* source =
                   editor.heldSource() ? editor.project().source(*editor.heldSource()) : nullptr) {
        cut.source = source->id;
        cut.end = source->length;
    } else {
        return {};
    }
    if (const auto range = editor.range()) std::tie(cut.start, cut.end) = std::pair(range->from, range->to);
    if (cut.length() < shortestOffer) return {};
    return cut;
}

std::vector<Cut> offeredCuts(const Editor& editor) {
    std::vector<Cut> cuts;
    if (!editor.range() && editor.pickedClips().size() > 1) {
        for (const auto& id : editor.pickedClips())
            if (const auto* clip = editor.clip(id))
                cuts.push_back({.source = clip->source, .start = clip->start, .end = clip->end});
    } else if (auto cut = offered(editor)) {
        cuts.push_back(std::move(*cut));
    }
    return cuts;
}

std::optional<UUID> pickedCut(const Editor& editor) {
    const auto pick = editor.picked();
    return pick && pick->kind == Pick::Kind::cut ? std::optional(pick->id) : std::nullopt;
}

void addToEnd(Editor& editor) {
    const auto cuts = offeredOrRefused(editor);
    if (cuts.empty()) return;
    put(editor, cuts, "", atEnd);
    const auto* video = editor.video();
    editor.say("Added to the end of " + (video ? video->title : "the video"));
}

void insertAtPlayhead(Editor& editor) {
    const auto cuts = offeredOrRefused(editor);
    if (cuts.empty()) return;
    put(editor, cuts, "", [&](Video& video, const Cut& cut) {
        return VideoEdits::insertAt(video, cut, editor.playback.time());
    });
}

void drop(Editor& editor, std::vector<Cut> cuts, std::optional<std::int64_t> at) {
    if (cuts.empty()) return;
    put(editor, cuts, "", [&](Video& video, const Cut& cut) { return VideoEdits::insert(video, cut, at); });
}

void newVideoFromSelection(Editor& editor) {
    const auto cuts = offeredOrRefused(editor);
    if (cuts.empty()) return;
    const auto* clip = editor.held();
    VideoCommands::create(editor, VideoCommands::lastAspect(),
                          cuts.size() == 1 && clip ? editor.title(*clip) : "Untitled Video");
    put(editor, cuts, "", atEnd);
}

void addGenerator(Editor& editor, const Book& book, std::optional<std::int64_t> at) {
    Changes::pin(editor, book);
    const auto length = std::max(book.playbook.length.value_or(standardGenerator), shortestGenerator);
    const auto cut = Cut::generated(book.id(), book.version(), std::nullopt, length);
    put(editor, {cut}, "Add " + book.playbook.name, [&](Video& video, const Cut& made) {
        return at ? VideoEdits::insert(video, made, at)
                  : VideoEdits::insertAt(video, made, editor.playback.time());
    });
}

void changeGenerator(Editor& editor, const UUID& cut, const std::string& name,
                     const GeneratorChange& change) {
    if (!isGenerated(editor, cut)) return;
    editor.change(name, [&](Project& project) { changeIn(editor, project, cut, change); });
}

void dragGenerator(Editor& editor, const UUID& cut, const GeneratorChange& change) {
    if (!isGenerated(editor, cut)) return;
    editor.dragAndRedraw([&](Project& project) { changeIn(editor, project, cut, change); });
}

void splitAtPlayhead(Editor& editor) {
    if (!editor.video()) return;
    std::optional<UUID> right;
    editor.change("Split", [&](Project& project) {
        right = VideoEdits::splitAt(Changes::openVideo(editor, project), editor.playback.time());
    });
    if (right)
        editor.setPicked(Pick{Pick::Kind::cut, *right, {}});
    else
        editor.refuse("Too near an edit to split");
}

void blade(Editor& editor, double at) {
    if (!editor.video()) return;
    editor.change("Blade",
                  [&](Project& project) { VideoEdits::splitAt(Changes::openVideo(editor, project), at); });
}

void toggleMuteCuts(Editor& editor, const std::vector<UUID>& cuts) {
    const bool allMuted = std::all_of(cuts.begin(), cuts.end(), [&](const UUID& id) {
        const auto* cut = cutOf(editor, id);
        return !cut || cut->muted.value_or(false);
    });
    if (!editor.video()) return;
    editor.change(allMuted ? "Unmute Clip" : "Mute Clip", [&](Project& project) {
        VideoEdits::toggleMute(Changes::openVideo(editor, project), cuts);
    });
}

void removeCut(Editor& editor) {
    const auto picked = pickedCut(editor);
    const auto* video = editor.video();
    const auto at = picked && video ? VideoEdits::index(*video, *picked) : std::nullopt;
    if (!at) return;
    editor.change("Remove Cut", [&](Project& project) {
        VideoEdits::remove(Changes::openVideo(editor, project), *picked);
    });
    const auto& left = editor.video()->cuts;
    if (!left.empty()) editor.setPicked(Pick{Pick::Kind::cut, left[std::min(*at, left.size() - 1)].id, {}});
}

void takeOutQuiet(Editor& editor, const UUID& id) {
    const auto* cut = cutOf(editor, id);
    if (!cut) return;
    const auto quiet = ProjectOperations::quiet(editor.project(), cut->source, {cut->start, cut->end},
                                                Settings::quietLeast());
    if (quiet.empty()) return editor.refuse("Nobody is quiet for long in this cut");
    double taken = 0;
    editor.change("Take Out Quiet Stretches", [&](Project& project) {
        taken = VideoEdits::takeOut(Changes::openVideo(editor, project), quiet, id, shortestLeft);
    });
    editor.say(fmt::format("Took out {} quiet {}, {} shorter", quiet.size(),
                           quiet.size() == 1 ? "stretch" : "stretches", shorter(taken)));
}

void trim(Editor& editor, const UUID& id, bool start, double to) {
    dragEdges(editor, id, !start, [&](Video& video, double length) {
        if (start)
            VideoEdits::trimStart(video, id, to);
        else
            VideoEdits::trimEnd(video, id, to, length);
    });
}

void slip(Editor& editor, const UUID& id, double toStart) {
    dragEdges(editor, id, false,
              [&](Video& video, double length) { VideoEdits::slip(video, id, toStart, length); });
}

void roll(Editor& editor, const UUID& id, double to) {
    dragEdges(editor, id, true,
              [&](Video& video, double length) { VideoEdits::roll(video, id, to, length); });
    const auto* video = editor.video();
    const auto at = video ? VideoEdits::index(*video, id) : std::nullopt;
    if (at && *at + 1 < video->cuts.size()) editor.setEdgeAfter(edgeOf(editor, video->cuts[*at + 1], false));
}

void endTrim(Editor& editor, const UUID& id, bool start, const std::string& name) {
    editor.setEdge(std::nullopt);
    editor.setEdgeAfter(std::nullopt);
    editor.closeDrag(name);
    const auto* cut = cutOf(editor, id);
    if (!cut) return;
    const auto edit = *VideoEdits::start(*editor.video(), id) + (start ? 0 : cut->length());
    editor.reloadVideo(edit, false, [&editor, edit] {
        const auto* video = editor.video();
        if (video)
            editor.playback.play(
                {std::max(edit - trimPreview, 0.0), std::min(edit + trimPreview, video->length())});
    });
}

void move(Editor& editor, const UUID& id, std::int64_t to) {
    if (!cutOf(editor, id)) return;
    editor.change("Move Cut",
                  [&](Project& project) { VideoEdits::move(Changes::openVideo(editor, project), id, to); });
    editor.setPicked(Pick{Pick::Kind::cut, id, {}});
}

void jumpToEdit(Editor& editor, bool next) {
    if (const auto* video = editor.video()) {
        const auto time = editor.playback.time();
        std::optional<double> to;
        for (const auto edit : VideoEdits::edits(*video)) {
            if (next && edit > time + editTolerance) {
                to = edit;
                break;
            }
            if (!next && edit < time - editTolerance) to = edit;
        }
        if (to) editor.playback.seek(*to);
    }
    editor.setFocus(Viewer::video);
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    const auto hasOffer = [](const Editor& editor) { return !offeredCuts(editor).empty(); };
    return {
        row<>("offered", "What Would Be Added", {},
              [](Editor& editor) { return OneLineJson::of(offered(editor)); }),
        row<>("offeredCuts", "All That Would Be Added", {},
              [](Editor& editor) { return OneLineJson::of(offeredCuts(editor)); }),
        row<>("pickedCut", "The Picked Cut", {},
              [](Editor& editor) { return OneLineJson::of(pickedCut(editor)); }),
        row<>("addToEnd", "Add to End", {}, addToEnd).when(hasOffer),
        row<>("insertAtPlayhead", "Insert at Playhead", {}, insertAtPlayhead).when(hasOffer),
        row<Kind::ListOf<Kind::CutRecord>, Kind::Maybe<Kind::Whole>>("drop", "Put Cuts", {"cuts", "at"},
                                                                     drop),
        row<>("newVideoFromSelection", "New Video from Selection", {}, newVideoFromSelection).when(hasOffer),
        row<Kind::PlaybookID, Kind::Maybe<Kind::Whole>>("addGenerator", "Add Generated Stretch",
                                                        {"playbook", "at"}, addGenerator),
        row<Kind::Cut, Kind::Text, Kind::Fields<Generator>>("changeGenerator", "Change Generated Stretch",
                                                            {"cut", "name", "change"}, changeGenerator)
            .when(hasVideo),
        row<Kind::Cut, Kind::Fields<Generator>>("dragGenerator", "Drag a Control of a Generated Stretch",
                                                {"cut", "change"}, dragGenerator)
            .when(hasVideo),
        row<>("splitAtPlayhead", "Split at Playhead", {}, splitAtPlayhead).when(hasVideo),
        row<Kind::Seconds>("blade", "Blade", {"at"}, blade).when(hasVideo),
        row<Kind::ListOf<Kind::Cut>>("toggleMuteCuts", "Mute or Unmute Clips", {"cuts"}, toggleMuteCuts)
            .when(hasVideo),
        row<>("removeCut", "Remove Cut", {}, removeCut).when([](const Editor& editor) {
            return pickedCut(editor).has_value();
        }),
        row<Kind::Cut>("takeOutQuiet", "Take Out Quiet Stretches", {"cut"}, takeOutQuiet).when(hasVideo),
        row<Kind::Cut, Kind::Flag, Kind::Seconds>("trim", "Drag an End of a Cut", {"cut", "start", "to"},
                                                  trim)
            .when(hasVideo),
        row<Kind::Cut, Kind::Seconds>("slip", "Drag a Cut's Footage", {"cut", "toStart"}, slip)
            .when(hasVideo),
        row<Kind::Cut, Kind::Seconds>("roll", "Drag the Seam After a Cut", {"cut", "to"}, roll)
            .when(hasVideo),
        row<Kind::Cut, Kind::Flag, Kind::Text>("endTrim", "End the Drag of a Cut", {"cut", "start", "name"},
                                               endTrim)
            .when(hasVideo),
        row<Kind::Cut, Kind::Whole>("move", "Move Cut", {"cut", "to"}, move).when(hasVideo),
        row<Kind::Flag>("jumpToEdit", "Jump to the Next or Previous Edit", {"next"}, jumpToEdit)
            .when(hasVideo),
    };
}

}
