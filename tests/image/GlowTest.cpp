#include "platform/image/filters/Glow.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

namespace {

/// What of an even brightness glows, 0 to 1: none below 0.35, an S up to 0.9.
double shining(double light) {
    const double step = std::clamp((light - 0.35) / 0.55, 0.0, 1.0);
    return step * step * (3 - 2 * step);
}

}

TEST(Glow, addsTheLightOfWhatIsBright) {
    for (const int level : {60, 120, 160, 200, 255}) {
        for (const double intensity : {0.5, 1.0}) {
            const auto grey = std::uint8_t(level);
            const auto found =
                at(filtered(Image::colour({grey, grey, grey, 255}), Filters::Glow{7, intensity}), 96, 96);
            const double light = level / 255.0;
            const double added = std::min(light * shining(light) * intensity * (200 + 140) / 255, 1.0);
            EXPECT_NEAR(found.green, (light + added - light * added) * 255, 2) << level << ' ' << intensity;
        }
    }
}

TEST(Glow, spreadsNearAndFar) {
    const Image spot = Image::colour(Colour::white).cropped({86, 86, 20, 20});
    const auto lit = filtered(spot, Filters::Glow{6, 1});
    EXPECT_EQ(at(lit, 96, 96).red, 255);
    EXPECT_GT(at(lit, 96, 110).red, 25) << "the near blur";
    EXPECT_EQ(at(lit, 96, 186).red, 0) << "the wide one ends three deviations out";
    EXPECT_EQ(at(lit, 110, 96), at(lit, 96, 110)) << "as far across as down";
}

TEST(Glow, hasAWideGlowOfFourTimesTheDeviation) {
    const Image half = Image::colour(Colour::white).cropped({0, 0, 96, side});
    const auto lit = filtered(half, Filters::Glow{6, 1});
    for (const int away : {24, 32, 40, 50}) {
        const double light = 140 * 0.5 * std::erfc((away + 0.5) / (24 * std::sqrt(2.0)));
        EXPECT_NEAR(at(lit, 96 + away, 96).green, light, 2) << away;
    }
}
