#pragma once

namespace murbo {

/// How the timeline's blocks are drawn, as the settings say. Heights in points.
struct TimelineLook {
    bool names = true;
    double filmstrip = 40;
    double waveform = 22;
    bool quiet = true; ///< stretches in which nobody speaks are darkened

    /// From the settings as they are now; heights are brought to 0 to 200.
    static TimelineLook current();

    bool operator==(const TimelineLook&) const = default;
};

}
