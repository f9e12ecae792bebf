#include "platform/image/kernels/Columns.h"

#include <gtest/gtest.h>

using namespace murbo;
using Kernels::Columns;
using Kernels::Line;
using Kernels::Taps;

TEST(Columns, wideStepsAreSummedByProducts) {
    const Columns columns(Line::through(0, 1.76), 0, 30, 0, 60, 1);
    EXPECT_EQ(columns.taps.sum, Taps::Sum::products);
    EXPECT_TRUE(columns.groups.empty());
}

TEST(Columns, areNearWhereEightSamplesHoldAGroup) {
    EXPECT_TRUE(Columns(Line::through(0, 0.5), 0, 32, 0, 60, 1).near);
    EXPECT_FALSE(Columns(Line::through(0, 1.7), 0, 32, 0, 60, 1).near);
    EXPECT_TRUE(Columns(Line::through(0, 1.7), 0, 3, 0, 60, 1).near) << "few outputs";
}
