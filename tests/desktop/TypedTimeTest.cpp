#include "app/desktop/inspector/TypedTime.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(TypedTime, isReadAsPeopleWriteIt) {
    for (const auto& [typed, seconds] : {std::pair{"7", 7.0},
                                         {" 7.5 ", 7.5},
                                         {"7,25 s", 7.25},
                                         {"1:02", 62.0},
                                         {"1:02.50", 62.5},
                                         {"1:00:02.5", 3602.5},
                                         {"0:90", 90.0}})
        EXPECT_EQ(TypedTime::seconds(typed), seconds) << typed;
    for (const auto* typed :
         {"", "s", "soon", "-1", "1e3", "1:2:3:4", "1.5:00", ":5", "1:", "nan", "9999999999"})
        EXPECT_EQ(TypedTime::seconds(typed), std::nullopt) << typed;
}
