#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

/// Media files made for a test by the ffmpeg program, and what that program reads out of files: the yardstick
/// that the readers are held against.
namespace murbo::made {

/// Whether the ffmpeg program is on this machine.
bool canMake();

/// A folder of this process's own, gone with it.
const std::filesystem::path& folder();

/// Makes a file in that folder, once, and answers its path. `arguments` stand between "ffmpeg -y" and the
/// name.
std::filesystem::path file(const std::string& name, const std::string& arguments);

/// What a command prints.
std::string output(const std::string& command);
std::string quoted(const std::filesystem::path& path);

/// Every picture that the ffmpeg program decodes: when it comes on, in seconds, and the sum of its bytes.
struct Shown {
    double time = 0;
    std::uint32_t sum = 0;
};
std::vector<Shown> pictures(const std::filesystem::path& path, const std::string& filter = "null");

/// All sound as the ffmpeg program reads it: 48 kHz stereo floats.
std::vector<float> sound(const std::filesystem::path& path, const std::string& options = "");

}

#define MURBO_NEEDS_FFMPEG() \
    if (!murbo::made::canMake()) GTEST_SKIP() << "The ffmpeg program makes these files, and it is not here."
