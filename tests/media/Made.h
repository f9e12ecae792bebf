#pragma once

#include "platform/image/Frame.h"
#include "tests/MadeMedia.h"

#include <vector>

/// What the ffmpeg program reads out of files: the yardstick that the readers are held against.
namespace murbo::made {

/// Every picture that the ffmpeg program decodes: when it comes on, in seconds, and the sum of its bytes.
struct Shown {
    double time = 0;
    std::uint32_t sum = 0;
};
std::vector<Shown> pictures(const std::filesystem::path& path, const std::string& filter = "null");

/// The sum that ffmpeg's framecrc prints: Adler-32, begun at 0, over the rows of all planes one after the
/// other.
std::uint32_t sum(const Frame& frame);

/// All sound as the ffmpeg program reads it: 48 kHz stereo floats.
std::vector<float> sound(const std::filesystem::path& path, const std::string& options = "");

}
