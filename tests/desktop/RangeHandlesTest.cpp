#include "app/desktop/viewer/RangeHandles.h"

#include <gtest/gtest.h>

using namespace murbo;
using RangeHandles::RangeEnd;

TEST(RangeHandles, areTakenWithinTheirReach) {
    const RangeHandles::StripScale strip{{10, 20}, 500};
    const Stretch range{12, 14};
    EXPECT_EQ(RangeHandles::at(range, strip, 100), RangeEnd::start);
    EXPECT_EQ(RangeHandles::at(range, strip, 206), RangeEnd::end);
    EXPECT_EQ(RangeHandles::at(range, strip, 150), RangeEnd::none);
    EXPECT_EQ(RangeHandles::at({12, 12}, strip, 97), RangeEnd::start);
    EXPECT_EQ(RangeHandles::at({12, 12}, strip, 103), RangeEnd::end);
    EXPECT_NEAR(strip.time(strip.x(13.7)), 13.7, 1e-9);
}

TEST(RangeHandles, stayInOrderAndOnTheStrip) {
    const Stretch span{10, 20};
    EXPECT_EQ(RangeHandles::dragged({12, 14}, RangeEnd::start, 13, span), (Stretch{13, 14}));
    EXPECT_NEAR(RangeHandles::dragged({12, 14}, RangeEnd::start, 19, span).length(), RangeHandles::shortest,
                1e-9);
    EXPECT_EQ(RangeHandles::dragged({12, 14}, RangeEnd::start, 3, span).from, 10);
    EXPECT_EQ(RangeHandles::dragged({12, 14}, RangeEnd::end, 99, span).to, 20);
    EXPECT_EQ(RangeHandles::dragged({12, 14}, RangeEnd::none, 99, span), (Stretch{12, 14}));
}
