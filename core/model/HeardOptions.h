#pragma once

#include "core/model/Video.h"

#include <set>

namespace murbo {

/// What sounds in an export or a player.
struct HeardOptions {
    bool includingMutedRows = false;   ///< lanes turned off sound too
    bool includingMutedBlocks = false; ///< cuts and cues turned off sound too
    std::set<Lane> soloed;             ///< not empty: only these lanes sound
    bool keepingTracks = false; ///< cues turned off stay, at volume 0, so that a player keeps its tracks
};

/// The video reduced to what is to sound, for an export or a player.
Video heard(const Video& video, const HeardOptions& options);

}
