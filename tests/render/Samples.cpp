#include "tests/render/Samples.h"

#include "platform/image/draw/Canvas.h"
#include "platform/media/MovieWriter.h"
#include "platform/media/SoundReader.h"

#include <cmath>
#include <cstring>
#include <numbers>

namespace murbo::samples {
namespace {

constexpr int width = 640;
constexpr int height = 360;
constexpr int bits = 12;
constexpr double beepLength = 0.1;

// The number stands as light and dark squares in the middle of the picture, where the square crop of a square
// video leaves it: one row of six, then another.
constexpr int squareSide = 48;
constexpr int left = (width - 6 * squareSide) / 2;
constexpr int top = (height - 2 * squareSide) / 2;
constexpr int frameWidth = 24;

void fill(Planes& planes, int x, int y, int wide, int high, std::uint8_t luma) {
    for (int row = y; row < y + high; ++row) {
        std::memset(planes.plane(0) + row * planes.stride(0) + x, luma, static_cast<std::size_t>(wide));
    }
}

bool beeps(double time) {
    return time >= 1 && time - std::floor(time) < beepLength;
}

Planes numbered(int number, bool framed) {
    Planes planes(width, height);
    fill(planes, 0, 0, width, height, framed ? 235 : 64);
    if (framed) {
        const int inset = (width - height) / 2 + frameWidth; // the square crop keeps a frame too
        fill(planes, inset, frameWidth, width - 2 * inset, height - 2 * frameWidth, 64);
    }
    for (int bit = 0; bit < bits; ++bit) {
        const int x = left + bit % 6 * squareSide;
        const int y = top + bit / 6 * squareSide;
        fill(planes, x, y, squareSide, squareSide, (number >> bit & 1) != 0 ? 220 : 24);
    }
    for (int index = 1; index < 3; ++index) {
        for (int row = 0; row < height / 2; ++row) {
            std::memset(planes.plane(index) + row * planes.stride(index), 128, width / 2);
        }
    }
    return planes;
}

std::vector<float> beep(int frames, int rate) {
    std::vector<float> samples(static_cast<std::size_t>(frames) * Sound::rate / rate * Sound::channels);
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const double time = static_cast<double>(index / Sound::channels) / Sound::rate;
        const double wave = std::sin(2 * std::numbers::pi * 1000 * time);
        samples[index] = beeps(time) ? static_cast<float>(0.5 * wave) : 0.0F;
    }
    return samples;
}

int greenAt(const Bitmap& frame, double x, double y) {
    return frame.row(static_cast<int>(y))[static_cast<int>(x) * 4 + 1];
}

}

void writeNumbered(const std::filesystem::path& path, int frames, int rate, bool sound) {
    auto writer = MovieWriter::open(path, {.width = width,
                                           .height = height,
                                           .rate = rate,
                                           .sound = sound,
                                           .preset = "veryfast",
                                           .quality = 20});
    const auto samples = sound ? beep(frames, rate) : std::vector<float>();
    for (int frame = 0; frame < frames; ++frame) {
        writer.picture(numbered(frame, sound && beeps(static_cast<double>(frame) / rate)));
        const auto from = samples.size() * frame / frames / 2 * 2;
        const auto to = samples.size() * (frame + 1) / frames / 2 * 2;
        if (sound) writer.sound(std::span(samples).subspan(from, to - from));
    }
    writer.finish();
}

int numberIn(const Bitmap& frame) {
    // The height fills the frame, and the width is cut to a square.
    const double scale = static_cast<double>(frame.height()) / height;
    const double inset = (width * scale - frame.width()) / 2;
    if (greenAt(frame, frame.width() / 2.0, frame.height() * 0.2) < 20) return -1;
    int number = 0;
    for (int bit = 0; bit < bits; ++bit) {
        const double x = (left + (bit % 6 + 0.5) * squareSide) * scale - inset;
        const double y = (top + (bit / 6 + 0.5) * squareSide) * scale;
        if (greenAt(frame, x, y) > 128) number |= 1 << bit;
    }
    return number;
}

bool isFramed(const Bitmap& frame) {
    return greenAt(frame, 4, frame.height() / 2.0) > 180;
}

Project project(const std::vector<std::filesystem::path>& files) {
    Project project;
    for (const auto& file : files) {
        Source source;
        source.path = file;
        source.length = 100;
        project.sources.edit().push_back(source);
    }
    return project;
}

Video video(const Project& project, const std::vector<Stretch>& stretches) {
    Video video;
    video.aspect = Video::Aspect::square;
    video.look.emplace();
    video.look->captions.on = false;
    for (const auto& stretch : stretches) {
        Cut cut;
        cut.source = project.sources[stretch.source].id;
        cut.start = stretch.start;
        cut.end = stretch.end;
        video.cuts.edit().push_back(cut);
    }
    return video;
}

std::uint32_t pixel(const Bitmap& bitmap, int x, int y) {
    std::uint32_t value = 0;
    std::memcpy(&value, bitmap.row(y) + 4 * x, 4);
    return value;
}

Bitmap drawn(const Image& image, int width, int height) {
    return Canvas::bitmap(image, {0, 0, static_cast<double>(width), static_cast<double>(height)});
}

}
