#pragma once

namespace murbo {

/// How far a clip reaches around a marker, in seconds: a streamer marks what has just happened.
struct ClipReach {
    double before = 150;
    double after = 60;
};

}
