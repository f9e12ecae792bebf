#include "platform/image/filters/Pixel.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(PixelFilter, hasACellRoundItsMiddle) {
    const auto cells = drawn(picture().clamped().filtered(Filters::Pixel{16, {96, 96}}), side, side);
    EXPECT_EQ(at(cells, 88, 88), at(cells, 103, 103)) << "one cell lies round the middle";
    EXPECT_NE(at(cells, 87, 96), at(cells, 88, 96));
}
