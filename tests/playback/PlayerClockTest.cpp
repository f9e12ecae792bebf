#include "app/editor/playback/PlayerClock.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(PlayerClock, standsOrRunsAtItsRateByTheClockThatLeads) {
    double now = 0;
    PlayerClock clock;
    EXPECT_EQ(clock.place(), 0);
    EXPECT_EQ(clock.rate(), 0);
    clock.run(10, -2, [&] { return now; });
    EXPECT_EQ(clock.place(), 10);
    now = 1.5;
    EXPECT_EQ(clock.place(), 7);
    EXPECT_EQ(clock.rate(), -2);
    clock.run(4, 1, [&] { return now - 2; });
    EXPECT_EQ(clock.place(), 3.5) << "what leads may run already, and be heard later";
    clock.stand(6);
    now = 99;
    EXPECT_EQ(clock.place(), 6);
    EXPECT_EQ(clock.rate(), 0);
}
