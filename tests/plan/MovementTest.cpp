#include "core/render/plan/Movement.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Movement, ofTwoAtOnceAddsWaysAndMultipliesSizes) {
    const Movement one{.dx = 1, .dy = 2, .scale = 2, .rotation = 10, .opacity = 0.5, .reveal = 0.9};
    const Movement other{.dx = 3, .dy = -4, .scale = 1.5, .rotation = -30, .opacity = 0.5, .reveal = 0.4};
    const Movement both{.dx = 4, .dy = -2, .scale = 3, .rotation = -20, .opacity = 0.25, .reveal = 0.4};
    EXPECT_EQ(one.with(other), both);
    EXPECT_EQ(one.with({}), one);
    EXPECT_TRUE((Movement{.opacity = 0, .reveal = 0.5}.rests())) << "fading moves nothing";
    for (const Movement& moved :
         {Movement{.dx = 0.01}, Movement{.dy = -0.01}, Movement{.scale = 0.99}, Movement{.rotation = 0.01}})
        EXPECT_FALSE(moved.rests());
}
