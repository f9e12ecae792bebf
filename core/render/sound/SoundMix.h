#pragma once

#include "core/model/Stretch.h"
#include "core/model/Video.h"
#include "core/render/plan/Plan.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace murbo {

/// What a video sounds like, as rules: which files sound, where, and how loud from moment to moment. What is
/// heard at all is settled before: every cut and cue given here is meant to sound (see Heard.h).
namespace SoundMix {

/// A gain that goes evenly from one value to another. Seconds on the video's clock, gains as factors.
struct Ramp {
    double start = 0;
    double end = 0;
    double from = 1;
    double to = 1;

    /// The gain at a time; after the end it stays.
    double at(double time) const {
        return from == to || time >= end ? to : from + (to - from) * (time - start) / (end - start);
    }
    bool operator==(const Ramp&) const = default;
};

/// Ramps in time order. Between two of them, and after the last, the gain stays where it was; before the
/// first it is where that one begins. An empty curve is 1 throughout.
using Curve = std::vector<Ramp>;

/// The gain of a curve at a time.
double gain(const Curve& curve, double time);

/// A stretch of a file that sounds from `start` to `end` on the video's clock. Cuts that follow one another
/// without a jump in their file are one piece, so that nothing is heard of the split.
struct Piece {
    double start = 0; ///< video seconds
    double end = 0;   ///< video seconds
    double from = 0;  ///< seconds in the file at `start`
    bool operator==(const Piece&) const = default;
};

/// All that sounds from one file under one curve; silent outside its pieces, which come in time order.
struct Track {
    std::filesystem::path file;
    std::vector<Piece> pieces;
    Curve gains;
};

/// How long a file's sound is in seconds; nothing where it has none or can't be read.
using Lengths = std::function<std::optional<double>(const std::filesystem::path& file)>;

/// By opening the file.
std::optional<double> lengthOf(const std::filesystem::path& file);

/// The footage's own sound, then music, effects, and the sounds in overlays. A file that can't be used costs
/// its track alone; sources in `missing` are silent.
std::vector<Track> tracks(const Video& video, const Plan& plan, const std::set<UUID>& missing = {},
                          const Lengths& lengths = lengthOf);

/// Whether the footage that a video shows has sound, heard or not: its movie then has a sound track too.
bool isRecorded(const Video& video, const Plan& plan, const std::set<UUID>& missing = {},
                const Lengths& lengths = lengthOf);

/// Every sound file that the video names, found or not: music first, then effects, then those of overlays.
std::vector<std::filesystem::path> files(const Video& video, const Plan& plan);

/// The ranges in time order, those joined that lie at most `gap` seconds apart.
std::vector<Stretch> silences(std::vector<Stretch> ranges, double gap);

}

}
