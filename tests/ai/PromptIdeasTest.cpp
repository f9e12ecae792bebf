#include "core/ai/PromptIdeas.h"

#include <gmock/gmock.h>

using namespace murbo;

TEST(PromptIdeas, fitTheProject) {
    PromptIdeas::Slots slots{
        .clips = {"C01", "C02", "C03", "C04"}, .sources = {"rec.mp4"}, .lines = {"C01.02"}};
    SeededRandom one(7);
    SeededRandom other(7);
    const auto chosen = PromptIdeas::choose(100, slots, one);
    EXPECT_EQ(chosen, PromptIdeas::choose(100, slots, other));
    EXPECT_GT(chosen.size(), 5u);
    EXPECT_LT(chosen.size(), PromptIdeas::all().size()) << "there is no video to speak of";
    for (const auto& text : chosen) EXPECT_THAT(text, testing::Not(testing::HasSubstr("{")));
    slots.pickedVideo = "V2";
    slots.pickedClips = {"C07", "C09"};
    EXPECT_EQ(PromptIdeas::fill("{clips} of {video}", slots, one), "C07, C09 of V2");
    EXPECT_EQ(PromptIdeas::choose(3, slots, one).size(), 3u);
}
