#include "core/model/CaptionStyle.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace murbo {

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

TEST(CaptionStyle, hasFiveOfItsOwn) {
    std::string told;
    for (const auto& style : CaptionStyle::builtIn())
        told += fmt::format("{} {} {}, ", *style.name, style.size.value_or(0), style.seam.value_or(true));
    EXPECT_EQ(told, "Pop 84 true, Clean 62 false, Bold Keyword 96 true, Story 78 false, Boxed 64 false, ");
    EXPECT_EQ(CaptionStyle::builtIn()[0].seam, true) << "the one that others build on says it";
}

}
