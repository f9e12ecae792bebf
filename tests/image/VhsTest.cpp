#include "platform/image/filters/Vhs.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

namespace {

double meanOfRow(const Bitmap& bitmap, int y) {
    double sum = 0;
    for (int x = 20; x < side - 20; ++x) sum += at(bitmap, x, y).green;
    return sum / (side - 40);
}

Bitmap taped(const Filters::Vhs& filter) {
    return filtered(Image::colour({128, 128, 128, 255}), filter);
}

}

TEST(Vhs, isPaleAndDarkAlongItsLines) {
    // 1.1 of the contrast and a twentieth darker, noise of 0.04 in the mean; half of each six rows lose 0.18.
    const double lit = 128 * 1.1 - 0.05 * 255 + 0.04 * 255;
    for (const double run : {0.0, 2.0, -3.0}) {
        const auto found = taped({6, run, 3});
        for (int y = 30; y < 60; ++y) {
            const bool dark = std::fmod(y - run, 6) < 3;
            EXPECT_NEAR(meanOfRow(found, y), dark ? lit * 0.82 : lit, 3.5) << y << " after " << run;
        }
    }
    const auto coloured = filtered(Image::colour({200, 100, 100, 255}), Filters::Vhs{0, 0, 1});
    double distance = 0;
    for (int x = 0; x < side; ++x)
        distance += (at(coloured, x, 4).red - at(coloured, x, 4).green) / double(side);
    EXPECT_NEAR(distance, 100 * 0.7 * 1.1, 4);
}

TEST(Vhs, hasNoiseThatJumpsFromPictureToPicture) {
    const auto one = taped({6, 0, 7});
    EXPECT_EQ(difference(one, taped({6, 0, 7})), 0);
    const auto other = taped({6, 0, 8});
    int changed = 0, min = 255, largest = 0, neighbours = 0;
    for (int x = 0; x < side; ++x) {
        changed += at(one, x, 4) != at(other, x, 4);
        neighbours += at(one, x, 4) == at(one, x, 5);
        min = std::min(min, at(one, x, 4).green);
        largest = std::max(largest, at(one, x, 4).green);
    }
    EXPECT_GT(changed, side * 8 / 10);
    EXPECT_EQ(neighbours, side) << "grains are two rows high";
    EXPECT_NEAR(largest - min, 0.08 * 255, 3);
}

TEST(Vhs, hasRedFurtherToTheRight) {
    const Image box = Image::colour(Colour::white).cropped({60, 0, 60, side});
    const auto found = filtered(box, Filters::Vhs{6, 0, 2});
    for (int y = 4; y < side; y += 30) {
        const auto left = at(found, 62, y);
        EXPECT_LT(left.red, 60) << "the left edge is cyan";
        EXPECT_GT(std::min(left.green, left.blue), 170);
        const auto right = at(found, 122, y);
        EXPECT_GT(right.red, 130) << "the right edge is red";
        EXPECT_LT(std::max(right.green, right.blue), 60);
        EXPECT_LT(at(found, 128, y).red, 60) << "six pixels and no more";
    }
    const auto half = filtered(box, Filters::Vhs{2.5, 0, 2});
    EXPECT_NEAR(at(half, 62, 4).red, (at(half, 61, 4).red + at(half, 63, 4).red) / 2.0, 25)
        << "between pixels";
}
