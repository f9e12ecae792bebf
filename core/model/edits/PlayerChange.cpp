#include "core/model/edits/PlayerChange.h"

#include <algorithm>

namespace murbo {
namespace {

void makeQuiet(List<SoundCue>& cues) {
    for (auto& cue : cues.edit()) {
        cue.volume.reset();
        cue.muted.reset();
    }
}

/// The video without all that leaves a player's composition as it is.
Video built(Video video) {
    video.title.clear();
    video.runs.reset();
    for (auto& cut : video.cuts.edit()) {
        if (cut.generator) cut.generator->values.reset();
        cut.muted.reset();
    }
    if (!video.look) video.look.emplace();
    auto& look = *video.look;
    look.shots = {};
    look.captions = {};
    look.mix.reset();
    makeQuiet(look.sounds);
    makeQuiet(look.music);
    return video;
}

bool sameSound(const Video& video, const Video& old) {
    const auto sameCut = [](const Cut& one, const Cut& other) { return one.muted == other.muted; };
    const Look look = video.look.value_or(Look{});
    const Look before = old.look.value_or(Look{});
    return look.mix == before.mix && look.sounds == before.sounds && look.music == before.music &&
           std::equal(video.cuts.begin(), video.cuts.end(), old.cuts.begin(), old.cuts.end(), sameCut);
}

}

PlayerChange playerChange(const Video& video, const Video* old) {
    if (!old || old->id != video.id || built(video) != built(*old)) return PlayerChange::rebuild;
    return sameSound(video, *old) ? PlayerChange::redraw : PlayerChange::remix;
}

}
