#pragma once

#include "platform/image/Bitmap.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace murbo {

/// Single pictures out of files: PNG, JPEG, WebP, GIF, BMP and AVIF. For footage see FrameReader.
namespace PictureFile {

inline constexpr std::int64_t maxPixels = std::int64_t{1} << 26; ///< 8192 x 8192, above all that phones take
inline constexpr std::size_t maxBytes = std::size_t{128} << 20;

/// The picture, upright, with its transparency; of a moving one the first. One of more than `maxKept` pixels
/// comes scaled down to that. Throws Problem where the path is no regular file or holds no such picture, or
/// one above the bounds, which costs next to nothing. What a cut file lacks is grey or clear.
Bitmap read(const std::filesystem::path& path, double maxKept);

}

}
