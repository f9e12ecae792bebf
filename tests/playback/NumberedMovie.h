#pragma once

#include "tests/MadeMedia.h"
#include "tests/render/Samples.h"

namespace murbo {

/// Movies of numbered pictures, 30 a second, made once for all tests of this program.
namespace numbered {

inline constexpr int rate = 30;

/// Of that many pictures.
inline std::filesystem::path movie(const std::string& name, int pictures = 150) {
    static const TemporaryFolder folder;
    const auto path = folder / name;
    if (!std::filesystem::exists(path)) samples::writeNumbered(path, pictures, rate);
    return path;
}

/// The same of 150 pictures with a keyframe each twelve; wants MURBO_NEEDS_FFMPEG.
inline std::filesystem::path keyed() {
    return made::file("keyed.mp4",
                      "-i " + made::quoted(movie("long.mp4")) + " -c:v libx264 -preset veryfast -g 12");
}

/// The number that a picture of such a movie carries; -1 where there is none.
inline int in(const std::optional<Image>& image) {
    return image ? samples::numberIn(samples::drawn(*image, 640, 360)) : -1;
}
inline int in(const std::optional<Frame>& frame) {
    return frame ? in(std::optional(Image::frame(*frame))) : -1;
}

}

}
