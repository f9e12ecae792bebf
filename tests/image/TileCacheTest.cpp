#include "platform/image/ImageNode.h"
#include "platform/image/filters/Glow.h"
#include "tests/image/Pictures.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

Bitmap stripes(int width, int height) {
    return bitmapOf(width, height, [](int x, int y) {
        return Colour{std::uint8_t(x * 7), std::uint8_t(y * 5), std::uint8_t((x / 9 + y / 7) % 2 * 200), 255};
    });
}

/// A picture of several that counts how often it is drawn.
Image counted(std::atomic<int>& count, double side = 400) {
    return Image::later({0, 0, side, side},
                        [&count, side] {
                            ++count;
                            return Image::bitmap(stripes(int(side), int(side)));
                        })
        .over(Image::colour(Colour::black).cropped({0, 0, side, side}));
}

}

TEST(TileCaches, arePixelsDrawnOnce) {
    std::atomic<int> count = 0;
    const Image once = counted(count).drawnOnce();
    const Image image = once.transformed(Transform().scaled(0.9, 0.9).rotated(20).translated(100, 40))
                            .over(once.transformed(Transform().scaled(0.8, 0.8)))
                            .over(once);
    drawn(image, 400, 400);
    EXPECT_EQ(count, 1);
    drawn(once.zoomBlurred({200, 200}, 20), 400, 400);
    EXPECT_EQ(count, 2) << "a long smear is drawn at half size";
    // Half of it is asked first, then the rest.
    const Image banded = counted(count).drawnOnce();
    Bitmap target(400, 400);
    for (int top = 0; top < 400; top += 100) Canvas::draw(banded, target, top, top + 100);
    EXPECT_LE(count, 2 + 4) << "no piece is drawn twice";
    EXPECT_EQ(difference(target, stripes(400, 400)), 0);
}

TEST(TileCaches, areAsFineAsTheyAreSeen) {
    std::atomic<int> count = 0;
    const Image plain = counted(count);
    for (const double scale : {1.0, 0.5, 0.25, 2.0}) {
        const auto way = Transform().scaled(scale, scale);
        EXPECT_EQ(difference(drawn(plain.drawnOnce().transformed(way), 500, 500),
                             drawn(plain.transformed(way), 500, 500)),
                  0)
            << "at " << scale << " the pixels are their own";
    }
    const Image detail =
        Image::bitmap(bitmapOf(64, 64, [](int x, int) { return x % 2 ? Colour::white : Colour::black; }));
    const Image once = detail.over(Image::colour({9, 9, 9, 255}).cropped({0, 0, 64, 64})).drawnOnce();
    const auto small = Transform().scaled(0.25, 0.25);
    EXPECT_NEAR(at(drawn(once.transformed(small), 16, 16), 8, 8).red, 128, 2);
    EXPECT_EQ(at(drawn(once, 64, 64), 9, 8), (Pixel{255, 255, 255, 255})) << "whoever came first";
    // Edges stay where they are, and stay opaque where they repeat.
    const Image odd = counted(count, 101).drawnOnce();
    const Bitmap half = drawn(odd.transformed(Transform().scaled(0.5, 0.5)), 60, 60);
    EXPECT_NEAR(at(half, 50, 20).alpha, 128, 1);
    EXPECT_EQ(at(drawn(odd.clamped().transformed(Transform().scaled(0.5, 0.5)), 60, 60), 50, 20).alpha, 255);
}

TEST(TileCaches, hideOnlyWhatTheyCover) {
    const auto card = [](const Rect& rect) {
        return Image::gradient(rect, {200, 0, 0, 255}, {100, 0, 0, 255});
    };
    const Image inGlass =
        card({0, 0, 101, 101}).over(Image::roundedRectangle({0, 0, 200, 200}, 20, {0, 0, 255, 128}));
    const Image white = Image::colour(Colour::white);
    const auto half = Transform().scaled(0.5, 0.5).translated(0.25, 0.25);
    for (const Image& all : {inGlass.drawnOnce().cropped({0, 0, 101, 101}).clamped().over(white),
                             card({10.5, 10.5, 60, 60}).drawnOnce().over(white.cropped({11, 11, 20, 20}))}) {
        const Bitmap seen = drawn(all.transformed(half), 60, 60);
        for (int at = 6; at < 15; ++at) EXPECT_EQ(Pictures::at(seen, at, 6).alpha, 255) << at;
        EXPECT_GE(at(seen, 55, 55).alpha, all.extent().isEverything() ? 255 : 0);
    }
    EXPECT_FALSE(card({0, 0, 101, 101}).drawnOnce().node()->opaque.empty()) << "what is even hides all of it";
}

TEST(TileCaches, haveTheEdgesThatRepeat) {
    for (int round = 0; round < 12; ++round) drawn(Image::colour({9, 9, 9, 9}), 256, 600); // memory's content
    std::atomic<int> count = 0;
    const auto shown = [&](const Image& image) {
        return image.cropped({0, 0, 400, 10}).clamped().cropped({0, 0, 256, 600});
    };
    const Image once = counted(count, 600).drawnOnce();
    Bitmap target(256, 600);
    for (int top = 500; top >= 0; top -= 100) Canvas::draw(shown(once), target, top, top + 100);
    EXPECT_EQ(difference(target, drawn(shown(counted(count, 600)), 256, 600)), 0);
}

TEST(TileCaches, uponOthersCostNoMoreThanTheirNumber) {
    for (const auto& [overlays, alpha] : {std::pair{100, 255}, {1000, 0}}) {
        Image image = Image::colour({200, 30, 40, 255}).cropped({0, 0, 64, 64});
        for (int at = 0; at < overlays; ++at) {
            const Image below = image.drawnOnce();
            const Image bright = below.clamped().filtered(Filters::Glow{2, 0.1}).faded(0.5);
            image = bright.over(below.transformed(Transform().translated(1, 0)).over(below))
                        .cropped(below.extent());
        }
        EXPECT_EQ(at(drawn(image, 64, 64), 32, 32).alpha, alpha) << overlays;
    }
}

TEST(TileCaches, areTheSameWhicheverThreadComesFirst) {
    std::atomic<int> count = 0;
    const auto scene = [&] {
        const Image once = counted(count).faded(0.7).drawnOnce();
        const Image twice = once.transformed(Transform().scaled(1.2, 1.2).rotated(9)).over(once).drawnOnce();
        return twice.transformed(Transform().scaled(0.8, 0.8))
            .over(twice.transformed(Transform().translated(3, 70)));
    };
    const Bitmap expected = drawn(scene(), 400, 400);
    for (int round = 0; round < 20; ++round) {
        const Image image = scene();
        Bitmap target(400, 400);
        std::vector<std::thread> threads;
        for (int band = 0; band < 4; ++band)
            threads.emplace_back(
                [&, top = (band * 3 + round) % 4 * 100] { Canvas::draw(image, target, top, top + 100); });
        for (auto& thread : threads) thread.join();
        EXPECT_EQ(difference(target, expected), 0);
    }
}

TEST(TileCaches, thatFailAreTriedAgain) {
    int asked = 0;
    const Image once = Image::later({0, 0, 40, 40}, [&] {
                           if (++asked == 1) throw std::runtime_error("not yet");
                           return Image::colour(Colour::white);
                       }).drawnOnce();
    EXPECT_THROW(drawn(once, 40, 40), std::runtime_error);
    EXPECT_EQ(at(drawn(once, 40, 40), 20, 20), (Pixel{255, 255, 255, 255}));
}
