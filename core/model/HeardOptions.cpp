#include "core/model/HeardOptions.h"

#include "core/model/Monitoring.h"

#include <algorithm>

namespace murbo {
namespace {

bool isSilent(Lane lane, const std::optional<Mix>& mix, const HeardOptions& options) {
    if (options.soloed.empty() && options.includingMutedRows) return false;
    return !Monitoring{options.soloed}.heard(lane, mix);
}

std::optional<Mix> heardMix(const std::optional<Mix>& mix, const HeardOptions& options) {
    std::optional<Mix> result = mix;
    for (const auto lane : allLanes) {
        if (!isSilent(lane, mix, options)) continue;
        if (!result) result.emplace();
        result->setLevel(lane, 0);
    }
    if (result) result->muted.reset();
    return result;
}

bool isMuted(const SoundCue& cue) {
    return cue.muted.value_or(false);
}
bool isMutedCut(const Cut& cut) {
    return cut.muted.value_or(false);
}

bool anyMuted(const List<SoundCue>& cues) {
    return std::any_of(cues.begin(), cues.end(), isMuted);
}

List<SoundCue> heardCues(List<SoundCue> cues, const HeardOptions& options) {
    if (!anyMuted(cues)) return cues;
    auto& changed = cues.edit();
    if (!options.includingMutedBlocks && !options.keepingTracks) std::erase_if(changed, isMuted);
    for (auto& cue : changed) {
        if (!isMuted(cue)) continue;
        if (options.includingMutedBlocks) {
            cue.muted.reset();
        } else {
            cue.volume = 0;
        }
    }
    return cues;
}

}

Video heard(const Video& video, const HeardOptions& options) {
    Video result = video;
    const bool anyCutMuted = std::any_of(video.cuts.begin(), video.cuts.end(), isMutedCut);
    if (options.includingMutedBlocks && anyCutMuted)
        for (auto& cut : result.cuts.edit()) cut.muted.reset();
    Look look = video.look.value_or(Look{});
    look.mix = heardMix(look.mix, options);
    look.sounds = heardCues(look.sounds, options);
    look.music = heardCues(look.music, options);
    if (look != video.look.value_or(Look{})) result.look = std::move(look);
    return result;
}

}
