#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(Edges, areSmoothWhereAPictureIsTransformed) {
    const auto moved =
        drawn(box({0, 0, 3, 3}, Colour::white).transformed(Transform().translated(2.25, 1.5)), 8, 8);
    EXPECT_NEAR(at(moved, 2, 3).alpha, 191, 1);
    EXPECT_NEAR(at(moved, 5, 3).alpha, 64, 1);
    EXPECT_NEAR(at(moved, 3, 1).alpha, 128, 1);
    EXPECT_NEAR(at(moved, 2, 1).alpha, 96, 1);
    EXPECT_EQ(at(moved, 3, 3).alpha, 255);
    // All coverage together is the rectangle's area, also where it is thinner than a pixel or turned.
    for (const double degrees : {0.0, 1.0, 30.0, 45.0, 90.0, 137.0}) {
        for (const Size size : {Size{20.3, 11.7}, Size{30, 0.4}}) {
            if (size.height < 1 && degrees != 0 && degrees != 90) continue;
            const auto turned = Transform()
                                    .translated(-size.width / 2, -size.height / 2)
                                    .rotated(degrees)
                                    .translated(25.2, 24.7);
            const auto bitmap =
                drawn(box({0, 0, size.width, size.height}, Colour::white).transformed(turned), 50, 50);
            const double area = coverage(bitmap);
            EXPECT_NEAR(area, size.width * size.height, 0.25 + 0.01 * area) << degrees;
        }
    }
}
