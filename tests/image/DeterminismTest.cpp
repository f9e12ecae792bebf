#include "tests/image/Pictures.h"
#include "tests/image/Targets.h"

#include <random>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr int width = 270;
constexpr int height = 482;

Frame form(int wide, int high, Frame::Layout layout, int depth) {
    Frame frame;
    frame.width = wide;
    frame.height = high;
    frame.layout = layout;
    frame.depth = depth;
    return frame;
}

Image panel(const Image& picture, const Rect& source, const Rect& target) {
    const auto way = Transform()
                         .translated(-source.x, -source.y)
                         .scaled(target.width / source.width, target.height / source.height)
                         .translated(target.x, target.y);
    return picture.clamped().transformed(way).cropped(target);
}

Image text() {
    return Image::bitmap(bitmapOf(180, 40, [](int x, int y) {
        return Colour{255, 255, std::uint8_t(x), std::uint8_t(x / 9 % 2 && y / 7 % 2 ? 255 : x * y % 256)};
    }));
}

/// Something of everything that can be drawn.
std::vector<std::pair<const char*, Image>> scenes() {
    Frame phone = form(200, 120, Frame::Layout::chroma420, 10);
    phone.turn = 1;
    phone.transfer = Frame::Transfer::hlg;
    phone.matrix = Frame::Matrix::bt2020;
    phone.primaries = Frame::Primaries::bt2020;
    phone.highBits = phone.interleavedChroma = true;
    const Image screen = Image::frame(frameOf(form(641, 361, Frame::Layout::chroma420, 8), waves));
    const Image upright = Image::frame(frameOf(phone, waves));
    const Rect all{0, 0, width, height};
    const Image split = panel(screen, {100.3, 20, 405, 360.2}, {0, 0, width, 240.4})
                            .over(panel(upright, {10, 40, 70, 62}, {0, 240.4, width, height - 240.4}))
                            .over(Image::colour(Colour::black).cropped(all));
    const Image caption = text().transformed(
        Transform().translated(-90, -20).rotated(-4).scaled(1.2, 1.2).translated(135, 240));
    const Image frame = caption.faded(0.8).over(split);
    const Image grouped = frame.transformed(Transform().rotated(12).scaled(0.8, 0.8))
                              .faded(0.7)
                              .over(Image::colour({9, 90, 30, 200}));
    return {
        {"split", frame},
        {"small",
         screen.transformed(Transform().scaled(0.21, 0.37).rotated(33).translated(150, 60)).over(upright)},
        {"grouped", grouped},
        {"whip",
         frame.clamped().motionBlurred(31, 0).transformed(Transform().translated(40.5, 0)).cropped(all)},
        {"tilted", frame.motionBlurred(17, 63)},
        {"zoom", frame.clamped().zoomBlurred({135, 241}, 30).cropped(all)},
        {"mild zoom", frame.clamped().zoomBlurred({100, 50}, 4).cropped(all)},
        {"clamped",
         frame.cropped({20, 30, 200, 300}).clamped().transformed(Transform().rotated(30).scaled(1.3, 0.6))}};
}

Bitmap inBands(const Image& image, const std::vector<int>& edges, bool shuffled, bool threaded) {
    Bitmap bitmap(width, height);
    std::vector<std::pair<int, int>> bands;
    for (std::size_t at = 1; at < edges.size(); ++at) bands.emplace_back(edges[at - 1], edges[at]);
    if (shuffled) std::shuffle(bands.begin(), bands.end(), std::mt19937(3));
    std::vector<std::thread> threads;
    for (const auto& [top, bottom] : bands) {
        const auto draw = [&image, &bitmap, top = top, bottom = bottom] {
            Canvas::draw(image, bitmap, top, bottom);
        };
        if (threaded)
            threads.emplace_back(draw);
        else
            draw();
    }
    for (auto& thread : threads) thread.join();
    return bitmap;
}

}

TEST(Determinism, bandsAndThreadsMakeNoDifference) {
    for (const auto& [name, image] : scenes()) {
        const Bitmap whole = drawn(image, width, height);
        keep(whole, name);
        EXPECT_EQ(difference(inBands(image, {0, 128, 256, 384, height}, false, false), whole), 0) << name;
        EXPECT_EQ(difference(inBands(image, {0, 1, 17, 100, 101, 333, 400, height}, true, false), whole), 0)
            << name;
        EXPECT_EQ(difference(inBands(image, {0, 120, 240, 360, height}, true, true), whole), 0) << name;
    }
}

TEST(Determinism, planesInBandsAreTheWholePlanes) {
    for (const auto& [name, image] : scenes()) {
        Planes whole(width, height);
        Canvas::draw(image, whole);
        Planes banded(width, height);
        for (const auto& [top, bottom] : {std::pair{300, height}, {0, 62}, {62, 300}})
            Canvas::draw(image, banded, top, bottom);
        EXPECT_EQ(difference(whole, banded), 0) << name;
    }
}

TEST(Determinism, everyInstructionSetDrawsTheSameBytes) {
    for (const auto& [name, image] : scenes()) {
        const Bitmap usual = drawn(image, width, height);
        Planes planes(width, height);
        Canvas::draw(image, planes);
        onEachTarget([&, scene = name, &picture = image](const char* target) {
            EXPECT_EQ(difference(drawn(picture, width, height), usual), 0) << scene << " on " << target;
            Planes here(width, height);
            Canvas::draw(picture, here);
            EXPECT_EQ(difference(here, planes), 0) << scene << " on " << target;
        });
    }
}
