#include "app/editor/commands/PickWords.h"

#include "app/editor/Timecode.h"
#include "app/editor/commands/Named.h"
#include "core/ai/Said.h"
#include "core/model/ShownMoments.h"
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

std::string cut(const Said& said, const Video& video, const UUID& id) {
    const auto position = VideoEdits::index(video, id);
    if (!position) return "";
    const auto& cut = video.cuts[*position];
    const auto words = "cut " + std::to_string(*position + 1);
    if (cut.role) return words + " (" + *cut.role + ")";
    const auto ends = said.ends(cut);
    return ends ? words + " (" + ends->first->tag + " to " + ends->last->tag + ")" : words;
}

std::string shot(const Editor& editor, const Video& video, const Shot& shot) {
    const auto book =
        shot.playbook ? Playbooks::book(*shot.playbook, shot.version, editor.package()) : std::nullopt;
    return "shot " + (book ? book->playbook.name : std::string(rawText(shot.layout))) + at(video, shot);
}

std::string sound(const Video& video, const SoundCue& cue, const char* word) {
    return std::string(word).append(" ").append(std::filesystem::path(cue.file).stem().string()) +
           at(video, cue);
}

std::string words(const Editor& editor, const Said& said, const Video& video, const Look& look,
                  const Pick& pick) {
    switch (pick.kind) {
        case Pick::Kind::cut:
            return cut(said, video, pick.id);
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
    const Said spoken(editor.project());
    std::string list;
    for (const auto& pick : picks) {
        const auto said = words(editor, spoken, *video, video->look ? *video->look : none, pick);
        if (!said.empty()) list += (list.empty() ? "" : ", ") + said;
    }
    return "In " + video->tag() + " “" + video->title + "”, these: " + list;
}

}
