#include "platform/image/filters/Comic.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

namespace {

double mean(const Bitmap& bitmap, const Rect& part) {
    double sum = 0;
    everywhere(int(part.width), int(part.height),
               [&](int x, int y) { sum += at(bitmap, int(part.x) + x, int(part.y) + y).green; });
    return sum / (part.width * part.height);
}

Bitmap printed(const Image& image) {
    return filtered(image, Filters::Comic());
}

}

TEST(Comic, printsInFewTones) {
    // Evenly grey pictures, and the tone that each is printed in; dots move it to both sides alike.
    const std::pair<int, double> tones[] = {{0, 8}, {20, 8}, {100, 82}, {150, 147}, {200, 205}, {255, 255}};
    for (const auto& [level, tone] : tones) {
        const auto grey = std::uint8_t(level);
        const auto found = printed(Image::colour({grey, grey, grey, 255}));
        EXPECT_NEAR(mean(found, {48, 48, 96, 96}), tone, 4) << level;
    }
    const auto dotted = printed(Image::colour({128, 128, 128, 255}));
    int min = 255, largest = 0;
    for (int x = 40; x < 150; ++x) {
        min = std::min(min, at(dotted, x, 96).green);
        largest = std::max(largest, at(dotted, x, 96).green);
    }
    EXPECT_NEAR(largest - min, 13, 2) << "dots";
    const auto strong = at(printed(Image::colour({160, 110, 110, 255})), 96, 96);
    EXPECT_NEAR(strong.red - strong.green, 50 * 22 / 16.0, 2) << "colours get stronger";
}

TEST(Comic, inksWhatIsDarkerThanItsSurroundings) {
    const Image ground = Image::colour({170, 170, 170, 255});
    const auto line = printed(Image::colour({60, 60, 60, 255}).cropped({94, 0, 4, side}).over(ground));
    EXPECT_LT(mean(line, {95, 40, 2, 100}), 12);
    const auto light = printed(Image::colour({250, 250, 250, 255}).cropped({94, 0, 4, side}).over(ground));
    EXPECT_GT(mean(light, {95, 40, 2, 100}), 160) << "what is lighter gets no ink";
    const auto area = printed(Image::colour({60, 60, 60, 255}).cropped({60, 0, 72, side}).over(ground));
    EXPECT_GT(mean(area, {90, 40, 12, 100}), 30) << "nor does an area";
}

TEST(Comic, inksFaintLinesInPart) {
    const auto lineOnGround = [](int darker) {
        const auto level = std::uint8_t(170 - darker);
        const Image line = Image::colour({level, level, level, 255}).cropped({94, 0, 4, side});
        const auto found = printed(line.over(Image::colour({170, 170, 170, 255})));
        return mean(found, {95, 36, 2, 120}) / mean(found, {130, 36, 24, 120});
    };
    EXPECT_GT(lineOnGround(5), 0.9) << "grain is no line";
    EXPECT_GT(lineOnGround(15), 0.3);
    EXPECT_LT(lineOnGround(15), 0.8);
    EXPECT_LT(lineOnGround(40), 0.1);
}
