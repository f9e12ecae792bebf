#pragma once

#include "core/model/Video.h"

#include <set>

namespace murbo {

struct HeardOptions {
    bool includingMutedRows = false;   ///< lanes turned off sound too
    bool includingMutedBlocks = false; ///< cuts and cues turned off sound too
    std::set<Lane> soloed;             ///< not empty: only these lanes sound
    bool keepingTracks = false; ///< cues turned off stay, at volume 0, so that a player keeps its tracks
};

/// The video reduced to what is to sound, for an export or a player.
Video heard(const Video& video, const HeardOptions& options);

/// What of a video is turned off.
struct Muted {
    bool rows = false;   ///< a lane
    bool blocks = false; ///< a cut or a cue
    bool operator==(const Muted&) const = default;
};

Muted hasMuted(const Video& video);

}
