#include "core/model/CaptionStyle.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(CaptionStyle, takesFromBeneathWhatItLeavesOpen) {
    CaptionStyle own;
    own.size = 90;
    own.fill = "";
    CaptionStyle beneath;
    beneath.size = 60;
    beneath.fill = "FFFFFF";
    beneath.y = 0.3;
    const auto merged = own.over(beneath);
    EXPECT_EQ(merged.size, 90);
    EXPECT_EQ(merged.fill, "") << "an empty colour is a choice";
    EXPECT_EQ(merged.y, 0.3);
    EXPECT_EQ(merged.motion, std::nullopt);
}
