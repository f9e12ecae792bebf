#include "core/model/CaptionStyle.h"
#include "platform/base/Codec.h"

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

TEST(CaptionStyle, thePresetsSayNoMoreThanTheirOwn) {
    const char* const presets[] = {
        R"({"bigFill":"","bigScale":1.7,"fill":"FFFFFF","id":"pop","most":24,"motion":"pop","name":"Pop",)"
        R"("outline":"000000","pill":"","seam":true,"shadow":false,"size":84,"stroke":30,"upper":false,)"
        R"("weight":0.56,"y":0.3})",
        R"({"bigScale":1.3,"id":"clean","most":30,"motion":"fade","name":"Clean","outline":"","seam":false,)"
        R"("shadow":true,"size":62,"weight":0.4,"y":0.7})",
        R"({"bigFill":"FFD60A","bigScale":1.45,"id":"bold","most":12,"motion":"words","name":"Bold Keyword",)"
        R"("outline":"000000","size":96,"stroke":24,"weight":0.62})",
        R"({"bigScale":2.2,"id":"story","most":18,"motion":"rise","name":"Story","outline":"FF5FA2",)"
        R"("seam":false,"size":78,"stroke":34,"y":0.5})",
        R"({"bigFill":"E0245E","bigScale":1.35,"fill":"111111","id":"boxed","most":26,"motion":"pop",)"
        R"("name":"Boxed","outline":"","pill":"FFFFFF","seam":false,"size":64,"weight":0.4,"y":0.66})"};
    for (std::size_t at = 0; at < CaptionStyle::builtIn().size(); ++at)
        EXPECT_EQ(Codec::encode(CaptionStyle::builtIn()[at], JsonWriter::Layout::compact), presets[at]);
}
