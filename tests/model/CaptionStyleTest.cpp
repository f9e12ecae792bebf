#include "core/model/CaptionStyle.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(CaptionStyle, takesFromBeneathWhatItLeavesOpen) {
    const CaptionStyle own{.size = 90, .fill = ""}; // an empty colour is a choice
    auto beneath = CaptionStyle{.size = 60, .fill = "FFFFFF"};
    beneath.y = 0.3;
    auto expected = own;
    expected.y = 0.3;
    EXPECT_EQ(own.over(beneath), expected);
}
