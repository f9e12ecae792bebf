#pragma once

#include "platform/base/UUID.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <stop_token>
#include <string>

namespace murbo {

struct Project;
struct Video;

/// Takes a finished video out of the program as a movie file.
namespace Exporter {

/// What the encoder is asked for: the fastest setting measured whose picture is as good as that of "medium"
/// at 18 (SSIM higher on each of six samples of footage, PSNR on average 0.2 dB higher and nowhere 0.1 dB
/// lower), for 46 % of the work and files a quarter larger.
inline constexpr const char* encoderPreset = "veryfast";
inline constexpr double encoderQuality = 16;
inline constexpr int encoderLookahead = 15;

struct Order {
    std::filesystem::path to;                     ///< replaced when the new movie is whole
    std::set<UUID> missing;                       ///< sources whose file is gone: black and silence
    std::string fonts;                            ///< fall-back families for captions
    std::optional<std::filesystem::path> package; ///< of the project; none for one never saved
    std::optional<double> frameRate;              ///< without one the footage decides
    bool subtitles = false;                       ///< an ".srt" beside the movie
    bool includingMutedRows = false;
    bool includingMutedBlocks = false;
};

/// What is worth knowing of a movie that was made.
struct Notes {
    std::optional<std::filesystem::path> oldSubtitles; ///< an ".srt" beside it from before: players load it
};

/// Exports a video; blocks until the movie is in its place. `progress` gets 0 to 1 on this thread. Throws
/// Problem where it can't be made, ExportCancelled where `stop` was asked for: then nothing partial is left,
/// and what stood at the place stands there still. When only the subtitles fail, the movie stays.
Notes movie(const Video& video, const Project& project, const Order& order,
            const std::function<void(double)>& progress = {}, std::stop_token stop = {});

}

}
