#pragma once

namespace murbo {

struct Video;

/// What of a video is turned off.
struct Muted {
    bool rows = false;   ///< a lane
    bool blocks = false; ///< a cut or a cue
    bool operator==(const Muted&) const = default;
};

Muted hasMuted(const Video& video);

}
