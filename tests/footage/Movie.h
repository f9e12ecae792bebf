#pragma once

#include "platform/image/Image.h"
#include "platform/image/draw/Canvas.h"
#include "platform/media/MovieWriter.h"

#include <cmath>
#include <cstring>
#include <filesystem>
#include <optional>

namespace murbo {

/// A movie of grey pictures, each a little lighter than the one before, so that a picture tells its number.
namespace Movie {

inline constexpr int rate = 30;
inline constexpr int maxFrames = 200;

inline void write(const std::filesystem::path& path, int frames, int width = 128, int height = 64,
                  int picturesASecond = rate) {
    MovieWriter writer = MovieWriter::open(path, {.width = width,
                                                  .height = height,
                                                  .rate = picturesASecond,
                                                  .sound = false,
                                                  .preset = "veryfast",
                                                  .quality = 4});
    for (int number = 0; number < frames; ++number) {
        Planes planes(width, height);
        for (int plane = 0; plane < 3; ++plane)
            std::memset(planes.plane(plane), plane == 0 ? 20 + number : 128,
                        planes.stride(plane) * (plane == 0 ? height : height / 2));
        writer.picture(planes);
    }
    writer.finish();
}

/// The number that a picture's pixel tells.
inline int number(const Bitmap& picture) {
    const int grey = picture.row(picture.height() / 2)[picture.width() / 2 * 4];
    return static_cast<int>(std::lround(grey * 219 / 255.0 + 16 - 20));
}

inline int number(const std::optional<Bitmap>& picture) {
    return picture ? number(*picture) : -1;
}

inline int number(const std::optional<Image>& image) {
    return image ? number(Canvas::bitmap(*image, {0, 0, 128, 64})) : -1;
}

}

}
