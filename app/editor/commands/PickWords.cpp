#include "app/editor/commands/PickWords.h"

#include "app/editor/Timecode.h"
#include "app/editor/commands/Named.h"
#include "core/model/ShownMoments.h"
#include "core/model/Tags.h"
#include "core/model/edits/VideoEdits.h"
#include "core/playbooks/Playbooks.h"
#include "platform/base/RawText.h"

#include <algorithm>
#include <filesystem>

namespace murbo::PickWords {
namespace {

template <class Records>
auto find(const Records& records, const UUID& id) -> decltype(&records[0]) {
    const auto found =
        std::find_if(records.begin(), records.end(), [&](const auto& one) { return one.id == id; });
    return found == records.end() ? nullptr : &*found;
}

template <class Block>
std::string at(const Video& video, const Block& block) {
    const auto time = ShownMoments(video.cuts).on(block.source, block.at);
    return time ? " at " + Timecode::fine(*time) : "";
}

constexpr double touch = 0.05; ///< seconds by which a line must reach into a cut to count

/// The tags of the first and the last line or note that a cut plays; empty with none.
std::pair<std::string, std::string> ends(const Project& project, const Cut& cut) {
    const auto tags = Tags::on(cut.source, project);
    std::map<double, std::string> played;
    const auto note = [&](const auto& piece) {
        const auto tag = tags.find(piece.id);
        if (tag != tags.end() && cut.start + touch < piece.end && piece.start < cut.end - touch)
            played.emplace(piece.start, tag->second);
    };
    const auto& transcript = project.transcript(cut.source);
    for (const auto& line : transcript.lines)
        if (!line.isGone()) note(line);
    for (const auto& one : transcript.notes) note(one);
    if (played.empty()) return {};
    return {played.begin()->second, played.rbegin()->second};
}

std::string cut(const Editor& editor, const Video& video, const UUID& id) {
    const auto position = VideoEdits::index(video, id);
    if (!position) return "";
    const auto& cut = video.cuts[*position];
    const auto words = "cut " + std::to_string(*position + 1);
    if (cut.role) return words + " (" + *cut.role + ")";
    const auto [first, last] = ends(editor.project(), cut);
    return first.empty() ? words : words + " (" + first + " to " + last + ")";
}

std::string shot(const Editor& editor, const Video& video, const Shot& shot) {
    const auto book =
        shot.playbook ? Playbooks::book(*shot.playbook, shot.version, editor.package()) : std::nullopt;
    return "shot " + (book ? book->playbook.name : std::string(rawText(shot.layout))) + at(video, shot);
}

std::string sound(const Video& video, const SoundCue& cue, const char* word) {
    return word + (" " + std::filesystem::path(cue.file).stem().string()) + at(video, cue);
}

std::string words(const Editor& editor, const Video& video, const Look& look, const Pick& pick) {
    switch (pick.kind) {
        case Pick::Kind::cut:
            return cut(editor, video, pick.id);
        case Pick::Kind::shot:
            if (const auto* found = find(look.shots, pick.id)) return shot(editor, video, *found);
            return "";
        case Pick::Kind::overlay:
            if (const auto* found = find(look.overlays, pick.id))
                return "playbook " + found->playbook + at(video, *found);
            return "";
        case Pick::Kind::sound:
        case Pick::Kind::music:
            if (const auto* found = find(look.music, pick.id)) return sound(video, *found, "song");
            if (const auto* found = find(look.sounds, pick.id)) return sound(video, *found, "sound");
            return "";
        case Pick::Kind::caption: {
            const auto tag = Named::tag(editor, pick.id);
            return UUID::parse(tag) ? "" : "caption " + tag;
        }
    }
    return "";
}

}

std::string of(const Editor& editor, const std::vector<Pick>& picks) {
    const auto* video = editor.video();
    if (!video) return "";
    static const Look none;
    std::string list;
    for (const auto& pick : picks) {
        const auto said = words(editor, *video, video->look ? *video->look : none, pick);
        if (!said.empty()) list += (list.empty() ? "" : ", ") + said;
    }
    return "In " + video->tag() + " “" + video->title + "”, these: " + list;
}

}
