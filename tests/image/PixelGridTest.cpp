#include "platform/image/draw/PixelGrid.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PixelGrids, areAsFineAsAPictureIsSeen) {
    const Rect extent{10, 20, 100, 40.5};
    const auto grid = PixelGrid::over(extent, Transform().rotated(30).scaled(0.5, 0.5), 1);
    EXPECT_EQ(grid.whole, (PixelRect{0, 0, 50, 21}));
    EXPECT_EQ(grid.toGrid.apply(Point{10, 20}), (Point{0, 0}));
    EXPECT_NEAR(grid.toGrid.apply(Point{110, 60.5}).y, 21, 1e-9) << "whole pixels";
    EXPECT_EQ(PixelGrid::over(extent, Transform().scaled(9, 9), 1).whole, (PixelRect{0, 0, 100, 41}));
    EXPECT_EQ(PixelGrid::over(extent, Transform().scaled(1e6, 1), 1e9).whole.right, 16384);
}
