#pragma once

#include "core/model/CaptionLine.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

struct Project;
struct Video;

/// One caption on the video's clock, worked out from a transcript line and what was changed on it by hand.
struct CaptionCue {
    double start = 0; ///< video seconds
    double end = 0;
    std::string text;
    UUID line;
    std::optional<int> piece; ///< among the pieces of its line; none when the line is one piece
    bool byHand = false;      ///< broken by hand
    bool big = false;
    bool hidden = false;              ///< kept for the editor, left out of the plan
    std::vector<std::int64_t> stress; ///< word indexes
    std::optional<Move> move;

    bool operator==(const CaptionCue&) const = default;

    /// All captions of a video, hidden ones included, in cut order.
    static std::vector<CaptionCue> cues(const Video& video, const Project& project);

    /// The captions of one line: broken by hand where those breaks still fit the text, else into pieces of
    /// at most `most` characters.
    static std::vector<CaptionCue> pieces(const CaptionCue& cue, const CaptionLine* line, std::int64_t max);

    /// A moment near `time` at which a caption stands complete on the screen. Nothing with no cues.
    static std::optional<double> shown(double time, std::vector<CaptionCue> cues);
};

}
