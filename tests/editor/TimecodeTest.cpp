#include "app/editor/Timecode.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Timecode, countsFramesWithinTheSecond) {
    EXPECT_EQ(Timecode::frames(7.4, 30), "00:00:07:12");
    EXPECT_EQ(Timecode::frames(3661.5, 60), "01:01:01:30");
    EXPECT_EQ(Timecode::frames(-3, 30), "00:00:00:00");
    EXPECT_EQ(Timecode::frames(0.9999, 24), "00:00:00:23") << "never a frame that the second does not have";
}

TEST(Timecode, isShortOnAClock) {
    for (const auto& [time, clock, fine] :
         {std::tuple{0.0, "0:00", "0:00.00"}, {62.5, "1:02", "1:02.50"}, {3602.0, "1:00:02", "60:02.00"}}) {
        EXPECT_EQ(Timecode::clock(time), clock);
        EXPECT_EQ(Timecode::fine(time), fine);
    }
    for (const int rate : {24, 30, 60}) {
        double time = 0;
        const auto steps = [&](int frames) {
            for (int frame = 0; frame < frames; ++frame) time += 1.0 / rate;
        };
        steps(rate / 2);
        EXPECT_EQ(Timecode::fine(time), "0:00.50") << rate;
        steps(7200 * rate - rate / 2);
        ASSERT_NE(time, 7200) << "steps of " << rate << " a second don't add up";
        EXPECT_EQ(Timecode::fine(time), "120:00.00") << rate;
        EXPECT_EQ(Timecode::clock(time), "2:00:00") << rate;
    }
    EXPECT_EQ(Timecode::fine(0.29), "0:00.29") << "0.29 is no number of a computer's";
    EXPECT_EQ(Timecode::fine(0.499999), "0:00.49") << "what is not over is not over";
    EXPECT_EQ(Timecode::clock(59.999999), "0:59");
    for (const double unfit : {double(NAN), HUGE_VAL, -HUGE_VAL, 1e308})
        EXPECT_FALSE(Timecode::fine(unfit).empty());
}
