#pragma once

#include "core/model/Project.h"

#include <filesystem>
#include <string>
#include <vector>

namespace murbo::job {

/// The work that is measured: cuts of five seconds out of a long recording, in a split frame, with a new
/// popping caption every 1.25 s, and music.
struct Sample {
    std::filesystem::path folder; ///< kept between runs: making the recording takes a while
    std::filesystem::path recording;
    std::filesystem::path music;
    std::filesystem::path captions; ///< the same captions for the yardstick
    Project project;
    Video video;
};

/// Makes what is not there yet. Throws Problem where the ffmpeg program is missing or fails.
Sample sample(int seconds);

/// The same work with playbooks: a title before it, letters with particles over ten seconds of it, twice, an
/// old tape for two seconds, and every third cut in a layout.
Sample withPlaybooks(Sample sample);

/// The arguments with which the ffmpeg program does the same work; `output` are those that end the command.
std::vector<std::string> yardstick(const Sample& sample, const std::vector<std::string>& output);

}
