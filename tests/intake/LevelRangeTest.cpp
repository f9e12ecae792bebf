#include "core/intake/samples/LevelRange.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(LevelRange, isTheLevelsThatAStretchTouches) {
    struct Case {
        Stretch stretch;
        std::size_t from, to;
    };
    for (const auto& [stretch, from, to] : {Case{{0, 0.25}, 0, 3},
                                            {{0.3, 0.3}, 3, 4},
                                            {{-5, 0.1}, 0, 2},
                                            {{0.9, 99}, 9, 10},
                                            {{50, 60}, 10, 10},
                                            {{5, 2}, 10, 10},
                                            {{NAN, NAN}, 0, 0}}) {
        const auto range = LevelRange::of(stretch, 10, 10);
        EXPECT_EQ(range.from, from) << stretch.from;
        EXPECT_EQ(range.to, to) << stretch.to;
    }
}
