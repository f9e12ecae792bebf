#include "core/model/Video.h"
#include "core/render/plan/FrameTime.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(FrameTime, whatMeetsLeavesNoHoleAndNoDouble) {
    // The same moment, reached by adding up in two ways, at every frame of some minutes.
    for (const int rate : {24, 25, 30, 48, 60, 7}) {
        for (int frame = 0; frame < 3000; ++frame) {
            const double time = double(frame) / rate;
            for (const double off : {0.0, 1e-12, -1e-12, 0.0007, -0.0007}) {
                const double end = (time - 0.3) + 0.3 + off;
                const double start = time + off;
                EXPECT_NE(FrameTime::isOn(0, end, time) && frame > 0, FrameTime::isOn(start, 1e9, time))
                    << frame << " at " << rate << " off by " << off;
            }
        }
    }
}

TEST(FrameTime, aTimeIsMeantToATick) {
    EXPECT_TRUE(FrameTime::reached(2.0004, 2));
    EXPECT_FALSE(FrameTime::reached(2.002, 2));
    EXPECT_FALSE(FrameTime::isOn(2, 2.0004, 2)) << "shorter than a tick";
    for (const double none : {HUGE_VAL * 0, HUGE_VAL, -HUGE_VAL}) {
        EXPECT_FALSE(FrameTime::isOn(NAN, 1, none));
        EXPECT_FALSE(FrameTime::isOn(0, NAN, 0.5)) << "no end is no time to be on";
    }
}

TEST(FrameTime, theFirstFrameIsTheOneThatHasReachedIt) {
    struct Case {
        double edge;
        int rate;
        std::int64_t frame;
    };
    for (const auto& [edge, rate, frame] : {Case{0, 30, 0},
                                            {-5, 30, 0},
                                            {1.067, 30, 32},
                                            {1.066, 30, 32},
                                            {1.07, 30, 33},
                                            {2.033, 30, 61},
                                            {0.042, 24, 1},
                                            {0.3, 10, 3},
                                            {0.1 + 0.2, 10, 3},
                                            {100 * 3600, 240, 100LL * 3600 * 240}}) {
        EXPECT_EQ(FrameTime::first(edge, rate), frame) << edge;
        EXPECT_TRUE(FrameTime::reached(edge, double(frame) / rate));
        if (frame > 0) {
            EXPECT_FALSE(FrameTime::reached(edge, double(frame - 1) / rate)) << edge;
        }
    }
}

TEST(FrameTime, aCutEndsBeforeThePictureAtItsEnd) {
    const UUID source = UUID::make();
    const Cut cut{.source = source, .start = 1, .end = 2};
    Cut next{.source = source, .start = 2.0003, .end = 3};
    EXPECT_GE(FrameTime::lastMoment(cut, &next), 2) << "it goes on there";
    next.start = 2.01;
    for (const Cut* after : {&next, static_cast<Cut*>(nullptr)}) {
        EXPECT_LT(FrameTime::lastMoment(cut, after) + Times::tick / 2, 1.999);
        EXPECT_GT(FrameTime::lastMoment(cut, after), 1.995);
    }
    EXPECT_EQ(FrameTime::lastMoment({.start = 1, .end = 1.001}, nullptr), 1);
}
