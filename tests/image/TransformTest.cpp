#include "platform/image/Transform.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Transform, transformsActInTheOrderInWhichTheyRead) {
    const auto transform = Transform().translated(10, 0).scaled(2, 3).rotated(90).translated(100, 0);
    EXPECT_EQ(transform.apply(Point{1, 1}), (Point{100 - 3, 22}));
    const Point back = transform.inverse().apply(transform.apply(Point{4, 7}));
    EXPECT_NEAR(back.x, 4, 1e-12);
    EXPECT_NEAR(back.y, 7, 1e-12);
    EXPECT_FALSE(Transform().scaled(0, 1).invertible());
}

TEST(Transform, quarterTurnsAreExactAndClockwise) {
    EXPECT_EQ(Transform().rotated(90).apply(Point{1, 0}), (Point{0, 1}));
    EXPECT_EQ(Transform().rotated(-270), Transform().rotated(90));
    EXPECT_EQ(Transform().rotated(180).rotated(180), Transform());
}
