#include "app/editor/Timecode.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <fmt/format.h>

namespace murbo::Timecode {
namespace {

constexpr double longest = 3.2e11;     // seconds
constexpr double nearlyAFrame = 0.001; // frames by which a time may fall short of its own
// Seconds by which a time may fall short of its hundredth, for sums of frames do by up to 2e-8 in two hours.
// More would show what has not come yet.
constexpr double rounding = 1e-7;

double sane(double time) {
    return time > 0 ? std::min(time, longest) : 0; // no number is 0 too
}

std::int64_t wholeHundredths(double time) {
    return static_cast<std::int64_t>(std::floor((sane(time) + rounding) * 100));
}

}

std::string frames(double time, double rate) {
    const auto perSecond = std::max<std::int64_t>(std::llround(std::clamp(rate, 1.0, 1000.0)), 1);
    const auto count =
        static_cast<std::int64_t>(std::floor(sane(time) * std::clamp(rate, 0.0, 1000.0) + nearlyAFrame));
    const auto seconds = count / perSecond;
    return fmt::format("{:02}:{:02}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60,
                       count % perSecond);
}

std::string clock(double time) {
    const auto seconds = wholeHundredths(time) / 100;
    if (seconds < 3600) return fmt::format("{}:{:02}", seconds / 60, seconds % 60);
    return fmt::format("{}:{:02}:{:02}", seconds / 3600, seconds / 60 % 60, seconds % 60);
}

std::string fine(double time) {
    const auto hundredths = wholeHundredths(time);
    return fmt::format("{}:{:02}.{:02}", hundredths / 6000, hundredths / 100 % 60, hundredths % 100);
}

}
