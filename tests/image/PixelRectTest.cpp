#include "platform/image/PixelRect.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PixelRects, takeThePixelsThatARectangleTouchesHoldsOrHasTheMiddlesOf) {
    const Rect rect{1.4, 2.5, 3.2, 2};
    EXPECT_EQ(PixelRect::touching(rect), (PixelRect{1, 2, 5, 5}));
    EXPECT_EQ(PixelRect::inside(rect), (PixelRect{2, 3, 4, 4}));
    EXPECT_EQ(PixelRect::within(rect), (PixelRect{1, 2, 5, 4}));
    EXPECT_TRUE(PixelRect::inside({0.2, 0, 0.6, 5}).empty());
    for (const double off : {1e-9, -1e-9}) { // sums of doubles
        const Rect near{1 + off, 2 + off, 3, 4};
        for (const auto& found : {PixelRect::touching(near), PixelRect::inside(near)})
            EXPECT_EQ(found, (PixelRect{1, 2, 4, 6})) << off;
        EXPECT_EQ(PixelRect::within({1.5 + off, 2.5 + off, 3, 4}), (PixelRect{1, 2, 4, 6})) << off;
    }
    EXPECT_EQ(PixelRect::touching({1e300, -1e300, 5, 1}).top, -(1 << 28));
    EXPECT_EQ((PixelRect{-9, 2, -5, 40}).clampedTo({0, 0, 10, 10}), (PixelRect{0, 2, 1, 10}));
    int covered = 0;
    around({0, 0, 10, 10}, {3, 4, 6, 20}, [&](const PixelRect& part) { covered += int(part.area()); });
    EXPECT_EQ(covered, 100 - 3 * 6);
}
