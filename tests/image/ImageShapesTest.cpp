#include "tests/image/Pictures.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr Colour ink{40, 120, 240, 255};

}

TEST(ImageShapes, ofNoMeasureAreNothing) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double wrong : {none, 1e308, -1e308, HUGE_VAL}) {
        for (int which = 0; which < 5; ++which) {
            double values[] = {1, 2, 30, 20, 5};
            values[which] = wrong;
            const Rect rect{values[0], values[1], values[2], values[3]};
            const bool place = which < 4;
            EXPECT_TRUE(Image::roundedRectangle(rect, values[4], ink).empty()) << which << ' ' << wrong;
            EXPECT_TRUE(Image::roundedOutline(rect, 3, values[4], ink).empty()) << which << ' ' << wrong;
            EXPECT_TRUE(!place || Image::gradient(rect, ink, Colour::black).empty()) << which << ' ' << wrong;
            drawn(Image::later(rect, [] { return Image::colour(ink).drawnOnce(); }), 8, 8);
        }
    }
    const Image tiny = Image::roundedRectangle({4, 4, 1e-300, 1e-300}, 1, ink);
    EXPECT_EQ(at(drawn(tiny, 8, 8), 4, 4).alpha, 0);
    drawn(Image::gradient({0, 0, 8, 1e-8}, ink, Colour::black).transformed(Transform().rotated(3)), 8, 8);
}
