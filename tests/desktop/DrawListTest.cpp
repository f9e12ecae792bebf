#include "app/desktop/drawn/DrawList.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(DrawList, rectanglesLieOnWholePixelsAndNoneIsLost) {
    EXPECT_EQ(DrawList::onPixels({10.4, 3.6, 1, 20}, 1), QRectF(10, 4, 1, 20));
    EXPECT_EQ(DrawList::onPixels({10.4, 3.6, 0.2, 0.2}, 1), QRectF(10, 4, 1, 1))
        << "none thinner than a pixel";
    EXPECT_EQ(DrawList::onPixels({10.3, 0, 3, 1}, 2), QRectF(10.5, 0, 3, 1));
    for (double x = 0; x < 3; x += 0.07) {
        const auto thin = DrawList::onPixels({x, 0, 1, 20}, 1.5);
        EXPECT_LE(std::ceil(thin.left()) + 1, thin.right()) << "a whole point is in it, or it is lost later";
    }
    for (double x = 0; x < 3; x += 0.13) {
        const auto left = DrawList::onPixels({x, 0, 5.37, 1}, 1.5);
        const auto right = DrawList::onPixels({x + 5.37, 0, 2, 1}, 1.5);
        EXPECT_NEAR(left.right(), right.left(), 1e-9) << "neighbours still meet";
    }
}
