#pragma once

#include "platform/image/Frame.h"
#include "platform/media/FFmpeg.h"
#include "platform/media/MediaFile.h"
#include "tests/MadeMedia.h"

#include <vector>

/// What the ffmpeg program reads out of files: the yardstick that the readers are held against.
namespace murbo::made {

/// Two tracks to encode, and an encoder.
inline const std::string pattern = "-f lavfi -i testsrc=s=320x180:r=30:d=4 -f lavfi -i sine=d=4 ";
inline const std::string x264 = "-c:v libx264 -preset ultrafast -pix_fmt yuv420p ";

/// What is read of a file that the ffmpeg program makes.
inline MediaFacts factsOf(const char* name, const std::string& arguments) {
    return MediaFile::facts(file(name, arguments));
}

/// A picture as a decoder gives it, all bytes of its planes alike.
ffmpeg::Picture picture(AVPixelFormat format, int width, int height, int byte = 0);

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
