#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr Colour red{255, 0, 0, 255};
constexpr Colour blue{0, 0, 255, 255};

}

TEST(Painter, laysOverInOrderAndFades) {
    const Image below = box({0, 0, 8, 8}, blue);
    const Image above = box({0, 0, 4, 8}, red);
    EXPECT_EQ(at(drawn(above.over(below), 8, 8), 2, 2), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(at(drawn(above.over(below), 8, 8), 6, 2), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(at(drawn(above.faded(0.5).over(below), 8, 8), 2, 2), (Pixel{128, 0, 127, 255}));
    // Faded as one, the lower picture does not shine through the upper.
    EXPECT_EQ(at(drawn(above.over(below).faded(0.5), 8, 8), 2, 2), (Pixel{128, 0, 0, 128}));
    EXPECT_EQ(at(drawn(Image::colour({255, 255, 255, 128}).faded(0.5), 8, 8), 2, 2), (Pixel{64, 64, 64, 64}));
}
