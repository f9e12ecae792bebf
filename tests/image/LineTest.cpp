#include "platform/image/kernels/Line.h"

#include <cmath>

#include <gtest/gtest.h>

using Line = murbo::Kernels::Line;

TEST(Lines, areExactFarOutAndTakeAnyNumber) {
    const auto line = Line::through(-1.25, 0.5);
    EXPECT_EQ(line.at(0), -Line::one * 5 / 4);
    EXPECT_EQ(line.at(1 << 28), -Line::one * 5 / 4 + (std::int64_t(1) << 27) * Line::one);
    EXPECT_EQ(Line::through(std::nan(""), 1).start, 0);
    EXPECT_EQ(Line::through(1e300, -1e300).start, Line::one << 36);
    EXPECT_EQ(Line::through(1e300, -1e300).step, -(Line::one << 20));
}
