#include "core/intake/MarkerTime.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(MarkerTime, isOneToThreePartsEachSixtyOfTheNext) {
    for (const auto& [field, seconds] : {std::pair{"83.5", 83.5},
                                         {"1:23", 83.0},
                                         {"01:02:03.5", 3723.5},
                                         {":30", 30.0},
                                         {"30:", 30.0},
                                         {"90:90", 5490.0},
                                         {"1:-5", 55.0}})
        EXPECT_EQ(MarkerTime::parse(field), seconds) << field;
    for (const auto* field : {"", ":", "1:2:3:4", "1: :2", "1:2x", "1 2", "inf", "1e308:1e308"})
        EXPECT_EQ(MarkerTime::parse(field), std::nullopt) << field;
}
