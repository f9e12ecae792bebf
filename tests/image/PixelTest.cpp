#include "platform/image/filters/Pixel.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(PixelFilter, hasACellRoundItsMiddle) {
    const auto cells = filtered(picture(), Filters::Pixel{16, {96, 96}});
    EXPECT_EQ(at(cells, 88, 88), at(cells, 103, 103)) << "one cell lies round the middle";
    EXPECT_NE(at(cells, 87, 96), at(cells, 88, 96));
}

TEST(PixelFilter, takesPixelsIntoTheCellOfTheirMiddles) {
    // One cell goes from 89.3 to 102.3.
    const auto cells = filtered(picture(), Filters::Pixel{13, {95.8, 95.8}});
    EXPECT_EQ(at(cells, 89, 96), at(cells, 101, 96));
    EXPECT_EQ(at(cells, 96, 89), at(cells, 96, 101));
    EXPECT_NE(at(cells, 88, 96), at(cells, 89, 96));
    EXPECT_NE(at(cells, 102, 96), at(cells, 101, 96));
}
