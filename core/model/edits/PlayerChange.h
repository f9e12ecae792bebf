#pragma once

#include "core/model/Video.h"

namespace murbo {

/// What a player must do after a change of a video, cheapest first.
enum class PlayerChange {
    redraw, ///< only the picture's plan
    remix,  ///< the sound anew, the picture's composition stands
    rebuild ///< everything anew
};

/// The change from `old` to `video`; null for a video that the player hasn't had.
PlayerChange playerChange(const Video& video, const Video* old);

}
