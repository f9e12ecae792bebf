#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(Gradients, goEvenlyFromColourToColour) {
    const Bitmap found = drawn(Image::gradient({2, 10, 6, 100}, {0, 0, 0, 255}, {200, 50, 0, 255}), 10, 120);
    EXPECT_EQ(at(found, 5, 9).alpha, 0);
    EXPECT_EQ(at(found, 1, 50).alpha, 0);
    for (int row = 0; row < 100; ++row)
        EXPECT_EQ(at(found, 4, 10 + row),
                  (Pixel{int(std::lround((row + 0.5) * 2)), int(std::lround((row + 0.5) / 2)), 0, 255}));
    // A clear end has no say in the hue.
    const Pixel half = at(drawn(Image::gradient({0, 0, 4, 2}, {255, 0, 0, 255}, {0, 0, 0, 0}), 4, 2), 1, 1);
    EXPECT_EQ(half, (Pixel{64, 0, 0, 64}));
    const auto turned = Transform().rotated(90).translated(120, 0);
    const Bitmap side = drawn(
        Image::gradient({2, 10, 6, 100}, {0, 0, 0, 255}, {200, 50, 0, 255}).transformed(turned), 120, 10);
    for (int row = 0; row < 100; ++row)
        EXPECT_LE(difference(at(side, 120 - 11 - row, 4), at(found, 4, 10 + row)), 1);
}
