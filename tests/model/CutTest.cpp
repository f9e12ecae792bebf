#include "core/model/Cut.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Cut, lastsWholeTicksAndNeverLessThanNothing) {
    EXPECT_EQ((Cut{.start = 2.033, .end = 4}.length()), 4 - 1220 / 600.0);
    EXPECT_EQ((Cut{.start = 29, .end = 20}.length()), 0);
    EXPECT_EQ((Cut{.start = std::nan(""), .end = 20}.length()), 0);
    EXPECT_EQ(Cut::generated("card", 2, std::nullopt, 0.05).length(), 0.1);
}

TEST(Cut, thatIsGeneratedNamesNoSource) {
    const auto one = Cut::generated("card", 2, std::nullopt, 3);
    EXPECT_NE(one.source, Cut::generated("card", 2, std::nullopt, 3).source);
    EXPECT_EQ(one.start, 0);
    EXPECT_EQ(one.generator->version, 2);
}
