#include "core/render/export/Subtitles.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

#include <fmt/format.h>

namespace murbo {

namespace {

constexpr double longest = 99 * 3600.0 + 59 * 60 + 59; // what the format has digits for

/// A block ends at an empty line, so a caption must not hold one.
std::string withoutEmptyLines(std::string_view text) {
    std::string result;
    for (const char character : text) {
        if (character == '\r') continue;
        if (character == '\n' && (result.empty() || result.back() == '\n')) continue;
        result += character;
    }
    while (!result.empty() && result.back() == '\n') result.pop_back();
    return result;
}

}

std::string Subtitles::srt(const std::vector<CaptionCue>& cues) {
    std::string text;
    for (std::size_t index = 0; index < cues.size(); ++index) {
        const CaptionCue& cue = cues[index];
        if (index > 0) text += '\n';
        text += fmt::format("{}\n{} --> {}\n{}\n", index + 1, time(cue.start), time(cue.end),
                            withoutEmptyLines(cue.text));
    }
    return text;
}

std::string Subtitles::time(double seconds) {
    const double shown = seconds > 0 ? std::min(seconds, longest) : 0;
    const std::int64_t milliseconds = std::llround(shown * 1000);
    return fmt::format("{:02}:{:02}:{:02},{:03}", milliseconds / 3600000, milliseconds / 60000 % 60,
                       milliseconds / 1000 % 60, milliseconds % 1000);
}

}
