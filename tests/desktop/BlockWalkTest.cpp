#include "app/desktop/timeline/BlockWalk.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;
using Way = BlockWalk::Way;

TEST(BlockWalk, goesAlongARowAndFromRowToRow) {
    TimelineVideo given;
    const auto layout = given.layout();
    const auto cut = [&](std::size_t at) {
        return std::optional(Pick{Pick::Kind::cut, given.cut(at).id, {}});
    };
    const auto go = [&](const std::optional<Pick>& from, Way way, double time = 0) {
        return BlockWalk::from(layout, from, time, way);
    };
    EXPECT_EQ(go({}, Way::next, 4.5)->pick, cut(1)) << "it begins where the playhead is";
    EXPECT_EQ(go({}, Way::next, 99)->pick, cut(2));
    EXPECT_EQ(go(cut(0), Way::next)->pick, cut(1));
    EXPECT_EQ(go(cut(1), Way::previous)->pick, cut(0));
    EXPECT_EQ(go(cut(0), Way::previous), nullptr);
    EXPECT_EQ(go(cut(2), Way::next), nullptr);
    EXPECT_EQ(go(cut(1), Way::first)->pick, cut(0));
    EXPECT_EQ(go(cut(0), Way::last)->pick, cut(2));
    const auto* caption = go(cut(1), Way::below);
    ASSERT_TRUE(caption);
    EXPECT_EQ(caption->label, "second line");
    const auto* sound = go(caption->pick, Way::below);
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->row, TimelineRow::sounds);
    EXPECT_EQ(go(sound->pick, Way::below), nullptr);
    EXPECT_EQ(go(sound->pick, Way::above)->pick, caption->pick);
    EXPECT_EQ(go(cut(1), Way::above), nullptr) << "the framing above is none that could be picked";
    EXPECT_EQ(BlockWalk::from({}, {}, 0, Way::next), nullptr);
}
