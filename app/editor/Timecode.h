#pragma once

#include <string>

namespace murbo {

/// The forms of a time on screen, each of what is over: 0.999 s is "0:00.99". A sum of frames that falls
/// short of its time by rounding alone counts as that time. A time below 0 is 0, and one past 10,000 years is
/// that.
namespace Timecode {

/// Hours, minutes, seconds and frames, "00:01:02:15", at `rate` frames a second.
std::string frames(double time, double rate);

/// Whole seconds: "1:02", from an hour on "1:00:02".
std::string clock(double time);

/// Hundredths: "1:02.50".
std::string fine(double time);

}

}
