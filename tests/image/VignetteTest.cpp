#include "platform/image/filters/Vignette.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(Vignette, darkensByTheDistanceFromTheMiddle) {
    const Rect frame{0, 0, side, side / 2};
    for (const Filters::Vignette& filter : {Filters::Vignette{1.2, 2}, {0.4, 0.8}}) {
        const Image even = Image::colour({200, 100, 40, 255}).cropped(frame);
        const auto found = drawn(even.filtered(filter), side, side / 2);
        for (int y = 0; y < side / 2; y += 5) {
            for (int x = 0; x < side; x += 7) {
                const double across = (x + 0.5 - 96) / 96;
                const double down = (y + 0.5 - 48) / 48;
                // 1 at the corners.
                const double distance = std::sqrt((across * across + down * down) / 2);
                const double beyond = std::max(distance / filter.radius - 0.15, 0.0);
                const double light = 1 / (1 + 6 * filter.intensity * beyond * beyond);
                EXPECT_NEAR(at(found, x, y).red, 200 * light, 1.2) << x << ", " << y;
                EXPECT_NEAR(at(found, x, y).blue, 40 * light, 1.2) << x << ", " << y;
            }
        }
    }
}

TEST(Vignette, showsNoStepsWhereItChangesSlowly) {
    const auto found = drawn(
        Image::colour({90, 90, 90, 255}).cropped(whole).filtered(Filters::Vignette{0.2, 3}), side, side);
    // Rounding differs from place to place: no run of one level is long.
    int longest = 0;
    for (int x = 1, run = 1; x < side; ++x) {
        run = at(found, x, 20).red == at(found, x - 1, 20).red ? run + 1 : 1;
        longest = std::max(longest, run);
    }
    EXPECT_LT(longest, side / 3);
}
