#include "platform/image/filters/ColourCube.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(ColourCube, looksUpBetweenItsEntries) {
    const Colour orange{240, 120, 30, 255};
    EXPECT_EQ(seen(orange, swapping(1)), (Pixel{30, 120, 240, 255})) << "red and blue change over";
    EXPECT_LE(difference(seen(orange, swapping(0.5f)), {15, 60, 120, 128}), 1);
}

TEST(ColourCube, goesAlongTheTetrahedronThatHoldsTheColour) {
    // Where only white is lit, a tetrahedron gives the least channel; where only black is dark, the largest.
    for (const bool largest : {false, true}) {
        auto values = std::make_shared<std::vector<float>>();
        for (int corner = 0; corner < 8; ++corner) {
            const float lit = largest ? corner > 0 : corner == 7;
            values->insert(values->end(), {lit, lit, lit, 1});
        }
        const Filter filter = Filters::ColourCube{2, values, nullptr};
        for (int at = 0; at < 500; ++at) {
            const Colour colour{std::uint8_t(at * 77), std::uint8_t(at * 31), std::uint8_t(at * 53), 255};
            const auto found = seen(colour, filter);
            const auto [min, max] = std::minmax({colour.red, colour.green, colour.blue});
            EXPECT_NEAR(found.green, largest ? max : min, 1) << at;
        }
    }
}

TEST(ColourCube, isLinearBetweenEntriesAlongEachChannel) {
    constexpr int steps = 5;
    const auto curve = [](int entry) { return float(entry * entry) / 16; };
    auto values = std::make_shared<std::vector<float>>();
    for (int at = 0; at < steps * steps * steps; ++at)
        values->insert(values->end(), {curve(at % steps), curve(at / steps % steps), curve(at / 25), 1});
    const Filter filter = Filters::ColourCube{steps, values, nullptr};
    const Bitmap found = drawn(
        Image::bitmap(
            bitmapOf(256, 1,
                     [](int x, int) {
                         return Colour{std::uint8_t(x), std::uint8_t(255 - x), std::uint8_t(x * 7), 255};
                     }))
            .filtered(filter),
        256, 1);
    for (int level = 0; level < 256; ++level) {
        const double place = level / 255.0 * (steps - 1);
        const int entry = std::min(int(place), steps - 2);
        const double value = curve(entry) + (curve(entry + 1) - curve(entry)) * (place - entry);
        EXPECT_NEAR(at(found, level, 0).red, value * 255, 1.5) << level;
        EXPECT_NEAR(at(found, 255 - level, 0).green, value * 255, 1.5) << level;
    }
}
