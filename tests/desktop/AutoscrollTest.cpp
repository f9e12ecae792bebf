#include "app/desktop/timeline/Autoscroll.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Autoscroll, runsWithin24PointsOfASideAndFasterBeyondIt) {
    EXPECT_EQ(Autoscroll::speed(400, 800), 0);
    EXPECT_EQ(Autoscroll::speed(24, 800), 0);
    EXPECT_EQ(Autoscroll::speed(776, 800), 0);
    EXPECT_EQ(Autoscroll::speed(12, 800), -87.5) << "a quarter of the way, squared";
    EXPECT_GT(Autoscroll::speed(790, 800), 0);
    EXPECT_GT(Autoscroll::speed(820, 800), Autoscroll::speed(799, 800));
    EXPECT_EQ(Autoscroll::speed(9999, 800), Autoscroll::fastest);
    EXPECT_EQ(Autoscroll::speed(-9999, 800), -Autoscroll::fastest);
    EXPECT_EQ(Autoscroll::speed(10, 50), 0) << "a view that is all sides";
}
