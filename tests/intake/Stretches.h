#pragma once

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

/// Small stretches of video whose picture is known, made by the ffmpeg program: a window on one large drawn
/// picture, moved or spoilt.
namespace murbo::stretches {

bool canMake();

/// A folder of this process's own, gone with it.
const std::filesystem::path& folder();

/// Makes a stretch of three seconds, once. `filter` turns the large picture of 960 x 720 into one of
/// 480 x 360; `encoding` are further options for the ffmpeg program.
std::filesystem::path stretch(const std::string& name, const std::string& filter,
                              const std::string& encoding = "-c:v libx264 -preset veryfast -crf 20 -g 250");

/// The window in the middle of the picture, kept still.
inline const std::string still = "crop=480:360";

}

#define MURBO_NEEDS_FFMPEG()          \
    if (!murbo::stretches::canMake()) \
    GTEST_SKIP() << "The ffmpeg program makes these stretches, and it is not here."
