#pragma once

#include "core/model/Project.h"
#include "platform/image/Bitmap.h"
#include "platform/image/Image.h"
#include "tests/SameBitmaps.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace murbo::samples {

/// A movie whose every picture carries its number, 640x360. With sound, each whole second holds a beep of
/// 0.1 s, and the picture is framed in white as long.
void writeNumbered(const std::filesystem::path& path, int frames, int rate, bool sound = false);

/// The number that a picture carries when it fills the frame; -1 where there is none (black).
int numberIn(const Bitmap& frame);
/// Whether the picture is framed in white.
bool isFramed(const Bitmap& frame);

/// A project with that one file, 100 seconds long to its records.
Project project(const std::vector<std::filesystem::path>& files);
/// A square video of stretches of the project's sources: {index of the source, start, end}. It shows the
/// whole picture, and no captions.
struct Stretch {
    std::size_t source = 0;
    double start = 0;
    double end = 0;
};
Video video(const Project& project, const std::vector<Stretch>& stretches);

/// One pixel as 0xAARRGGBB.
std::uint32_t pixel(const Bitmap& bitmap, int x, int y);
/// All pixels of an image's rectangle from the origin.
Bitmap drawn(const Image& image, int width, int height);

}
