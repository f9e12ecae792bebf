#include "platform/image/Rect.h"
#include "platform/image/Transform.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Rect, meetsAndJoinsOthers) {
    const Rect rect{1, 2, 3, 4};
    EXPECT_EQ(rect.intersection(Rect::everything()), rect);
    EXPECT_EQ(Rect::everything().intersection(rect), rect);
    EXPECT_TRUE(rect.intersection({4, 2, 1, 1}).empty());
    EXPECT_EQ(rect.united({}), rect);
    EXPECT_EQ(Rect().united(rect), rect);
    EXPECT_TRUE(rect.united({0, 0, 1, 1}).contains(rect));
    EXPECT_EQ(rect.intersection({2, 0, 9, 3}), (Rect{2, 2, 2, 1}));
    EXPECT_EQ(rect.intersection({0, 5, 2, 9}), (Rect{1, 5, 1, 1}));
    EXPECT_EQ(rect.united({0, 0, 1, 1}), (Rect{0, 0, 4, 6}));
    EXPECT_TRUE(rect.united(Rect::everything()).isEverything());
    EXPECT_TRUE(Transform().rotated(30).apply(Rect::everything()).isEverything());
}
