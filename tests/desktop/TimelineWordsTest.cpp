#include "app/desktop/access/TimelineWords.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;

TEST(TimelineWords, aBlockSaysWhatItIsWhereItLiesAndHowItStands) {
    TimelineVideo given;
    auto layout = given.layout();
    const auto name = [&](std::size_t at, bool picked = false) {
        return TimelineWords::block(layout, layout.blocks[at], picked);
    };
    std::vector<std::string> all;
    for (std::size_t at = 0; at < layout.blocks.size(); ++at) all.push_back(name(at));
    EXPECT_NE(std::ranges::find(all, "Cut 2 of 3, C01.02, 0:04.00 to 0:07.00"), all.end())
        << testing::PrintToString(all);
    EXPECT_NE(std::ranges::find(all, "Sound 1 of 1, boom, 0:05.00 to 0:06.00"), all.end());
    EXPECT_EQ(TimelineWords::list(given.editor.video()), "Timeline of V1, 3 cuts, 12 seconds");
    EXPECT_EQ(TimelineWords::list(nullptr), "Timeline");

    auto& block = layout.blocks.front();
    block.row = TimelineRow::picture;
    block.label = "C14.03–05";
    block.muted = block.missing = true;
    EXPECT_TRUE(name(0, true).find("C14.03 to C14.05, ") != std::string::npos) << name(0, true);
    EXPECT_TRUE(name(0, true).ends_with(", muted, file not found, picked")) << name(0, true);
    block.label = "C14.03–C15.01";
    EXPECT_TRUE(name(0).find("C14.03 to C15.01, ") != std::string::npos) << name(0);
}
