#include "app/editor/commands/SoundCommands.h"

#include "app/editor/KeptMedia.h"
#include "app/editor/commands/LookCommands.h"
#include "app/editor/commands/Row.h"

#include <algorithm>

namespace murbo::SoundCommands {
namespace {

using CueChange = std::function<void(SoundCue&)>;

void changeIn(Look& look, const std::vector<UUID>& ids, const CueChange& change) {
    for (auto* cues : {&look.sounds, &look.music})
        for (std::size_t at = 0; at < cues->size(); ++at)
            if (std::find(ids.begin(), ids.end(), (*cues)[at].id) != ids.end()) change(cues->edit()[at]);
}

void change(Editor& editor, const UUID& id, const std::string& name, const CueChange& body) {
    LookCommands::changeLook(editor, name, [&](Look& look) { changeIn(look, {id}, body); });
}

void drag(Editor& editor, const UUID& id, std::optional<double> start, std::optional<double> length) {
    const auto moment = start ? LookCommands::momentAt(editor, start) : std::nullopt;
    LookCommands::dragLook(editor, [&](Look& look) {
        changeIn(look, {id}, [&](SoundCue& cue) {
            if (moment) std::tie(cue.source, cue.at) = std::pair(moment->source, moment->at);
            if (length) cue.length = *length;
        });
    });
}

void remove(Editor& editor, const UUID& id) {
    LookCommands::changeLook(editor, "Remove Sound", [&](Look& look) {
        for (auto* cues : {&look.sounds, &look.music})
            std::erase_if(cues->edit(), [&](const SoundCue& cue) { return cue.id == id; });
    });
}

void setMix(Editor& editor, const std::function<void(Mix&)>& body) {
    LookCommands::changeLook(editor, "Change Levels", [&](Look& look) {
        auto mix = look.mix.value_or(Mix{});
        body(mix);
        if (mix.muted && mix.muted->empty()) mix.muted.reset();
        look.mix = mix;
    });
}

}

void addSound(Editor& editor, const std::filesystem::path& file, const std::string& folder, bool music,
              std::optional<double> at) {
    const auto moment = LookCommands::momentOrRefused(editor, at);
    if (!moment) return;
    const auto kept = LookCommands::keepMedia(editor, file, music ? "music" : "sounds");
    if (!kept) return editor.refuse(KeptMedia::failure(file));
    SoundCue cue;
    cue.file = *kept;
    cue.source = moment->source;
    cue.at = moment->at;
    cue.from = folder;
    LookCommands::changeLook(editor, music ? "Add Song" : "Add Sound",
                             [&](Look& look) { (music ? look.music : look.sounds).edit().push_back(cue); });
    editor.setPicked(Pick{music ? Pick::Kind::music : Pick::Kind::sound, cue.id, {}});
}

void toggleMuteSounds(Editor& editor, const std::vector<UUID>& ids) {
    const auto* video = editor.video();
    if (!video) return;
    auto look = video->look.value_or(Look{});
    bool anyHeard = false;
    changeIn(look, ids, [&](const SoundCue& cue) { anyHeard |= !cue.muted.value_or(false); });
    const auto muted = anyHeard ? std::optional(true) : std::nullopt;
    if (!video->look) return;
    LookCommands::changeLook(editor, anyHeard ? "Mute" : "Unmute", [&](Look& changed) {
        changeIn(changed, ids, [&](SoundCue& cue) { cue.muted = muted; });
    });
}

CommandList table() {
    const auto hasVideo = [](const Editor& editor) { return editor.video() != nullptr; };
    using Kind::Maybe;
    return {
        row<Kind::File, Kind::AnyText, Kind::Flag, Maybe<Kind::Seconds>>(
            "addSound", "Add a Sound or Song", {"file", "folder", "music", "at"}, addSound)
            .when(hasVideo),
        row<Kind::Sound, Kind::Text, Kind::Fields<SoundCue>>("changeSound", "Change Sound",
                                                             {"sound", "name", "change"}, change)
            .when(hasVideo),
        row<Kind::Sound, Maybe<Kind::Seconds>, Maybe<Kind::Seconds>>("dragSound", "Drag a Sound",
                                                                     {"sound", "start", "length"}, drag)
            .when(hasVideo),
        row<Kind::Sound>("removeSound", "Remove Sound", {"sound"}, remove).when(hasVideo),
        row<Kind::ListOf<Kind::Sound>>("toggleMuteSounds", "Mute or Unmute Sounds", {"sounds"},
                                       toggleMuteSounds)
            .when(hasVideo),
        row<Kind::Fields<Mix>>("setMix", "Change Levels", {"change"}, setMix).when(hasVideo),
    };
}

}
