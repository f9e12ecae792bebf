#include "platform/image/filters/Glow.h"
#include "tests/image/FilterKinds.h"
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

/// Shapes at odd places, blended with each other and what lies below.
Image shapes(const Image& below) {
    Image all = below;
    for (int at = 0; at < 15; ++at) {
        const Rect rect{at * 9.3, at * 21.7, 150.4, 111};
        const auto way = Transform().rotated(at % 4 * 11).scaled(1, 1 - at * 0.02);
        const Colour colour{std::uint8_t(at * 40), std::uint8_t(at * 17), 200,
                            std::uint8_t(255 - at % 3 * 60)};
        const Image shape = at % 3 == 0   ? Image::roundedRectangle(rect, 4.0 * at, colour)
                            : at % 3 == 1 ? Image::roundedOutline(rect, 30, 1.0 + at, colour)
                                          : Image::gradient(rect, colour, {9, 250, 3, 130});
        all = shape.transformed(way).over(all, blends[1 + at % 5]);
    }
    return all;
}

/// Graphs of every kind of picture, operation and filter.
std::vector<std::pair<std::string_view, Image>> graphs() {
    Frame phone = form(200, 120, Frame::Layout::chroma420, 10);
    phone.turn = 1;
    phone.transfer = Frame::Transfer::hlg;
    phone.matrix = Frame::Matrix::bt2020;
    phone.primaries = Frame::Primaries::bt2020;
    phone.highBits = phone.interleavedChroma = true;
    const Image screen = Image::frame(frameOf(form(641, 361), waves));
    const Image upright = Image::frame(frameOf(phone, waves));
    const Rect all{0, 0, width, height};
    const Image split = panel(screen, {100.3, 20, 405, 360.2}, {0, 0, width, 240.4})
                            .over(panel(upright, {10, 40, 70, 62}, {0, 240.4, width, height - 240.4}))
                            .over(box(all, Colour::black));
    const Image caption = text().transformed(
        Transform().translated(-90, -20).rotated(-4).scaled(1.2, 1.2).translated(135, 240));
    const Image frame = caption.faded(0.8).over(split);
    std::vector<std::pair<std::string_view, Image>> pictures{
        {"a colour", Image::colour({90, 20, 0, 100})},
        {"text", text()},
        {"split", frame},
        {"upright", upright},
        {"smear's rim", box({12.15, -17.43, 18.5, 78.53}, Colour::white)
                            .motionBlurred(10.5226, 76.52)
                            .cropped({2, 44, 10, 50})},
        {"card", box({-5, 10, 300, 600}, {200, 100, 50, 255})
                     .transformed(Transform().translated(0, 0.5))
                     .faded(0.37)
                     .over(Image::colour(Colour::white))},
        {"bloom beyond the repeated edge", frame.cropped({0, 0, 140, 140})
                                               .clamped()
                                               .cropped({-5, -5, 200, 200})
                                               .filtered(Filters::Glow{8, 0.9})},
        {"zoomed out of a corner", split.zoomBlurred({30, 400}, 25)},
        {"turned, smeared and masked", frame.transformed(Transform().rotated(90).translated(262, 0))
                                           .motionBlurred(17, 200)
                                           .masked(caption.clamped())},
        // Made anew for each band, so that nothing is kept from one drawing to the next.
        {"drawn once within another",
         Image::later(all,
                      [frame] {
                          const Image once = frame.drawnOnce();
                          const auto way = Transform().rotated(-33).translated(9, 140);
                          return once.transformed(way).over(once, Blend::screen).drawnOnce().faded(0.7);
                      })},
        {"mirrored and beyond its edge",
         split.transformed(Transform().scaled(-1.3, 0.4).translated(222, 99)).clamped()},
        {"shapes", shapes(frame)}};
    for (const auto& [name, filter] : FilterKinds::all())
        pictures.emplace_back(
            name, screen.clamped().filtered(filter).cropped(screen.extent()).over(caption.filtered(filter)));
    return pictures;
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

void expectSame(const Image& image, const std::string& name) {
    const Bitmap whole = drawn(image, width, height);
    Planes planes(width, height);
    Canvas::draw(image, planes);
    for (const bool threaded : {false, true})
        EXPECT_EQ(difference(inBands(image, {0, 1, 17, 61, 62, 256, 333, height}, true, threaded), whole), 0)
            << name;
    onEachTarget([&](const char* target) {
        EXPECT_EQ(difference(drawn(image, width, height), whole), 0) << name << " on " << target;
        Planes banded(width, height);
        for (const auto& [top, bottom] : {std::pair{300, height}, {0, 62}, {62, 300}})
            Canvas::draw(image, banded, top, bottom);
        EXPECT_EQ(difference(banded, planes), 0) << name << " on " << target;
    });
}

}

TEST(Determinism, bandsThreadsAndInstructionSetsMakeNoDifference) {
    for (const auto& [name, image] : graphs()) expectSame(image, std::string(name));
}
