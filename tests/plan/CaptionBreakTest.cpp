#include "core/render/plan/CaptionBreak.h"
#include "core/render/plan/CaptionText.h"

#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

TEST(CaptionBreak, saysTheSameHoweverOftenAndFromWhereItIsAsked) {
    std::vector<std::string> texts;
    for (int at = 0; at < 300; ++at)
        texts.push_back("line " + std::to_string(at) + " สวัสดีครับ and then we fell off the cliff");
    std::vector<std::jthread> askers;
    for (int asker = 0; asker < 4; ++asker)
        askers.emplace_back([&] {
            for (const auto& text : texts)
                for (const std::int64_t max : {12, 24}) {
                    const auto broken = CaptionBreak::of(text, max);
                    EXPECT_EQ(broken->texts, CaptionText::pieces(text, max));
                    EXPECT_EQ(broken->shares, CaptionBreak::byLength(broken->texts));
                }
        });
    askers.clear();
    EXPECT_EQ(CaptionBreak::of(texts[7], 12), CaptionBreak::of(texts[7], 12)) << "it is not worked out again";
    EXPECT_DOUBLE_EQ(CaptionBreak::of(texts[7], 12)->shares.back(), 1);
}

TEST(CaptionBreak, aTextOfAnyLengthIsTaken) {
    const std::string endless(5'000'000, 'a');
    EXPECT_EQ(CaptionBreak::of(endless, 100'000'000)->texts, std::vector{endless});
    EXPECT_EQ(CaptionBreak::of("", 24)->texts.size(), 1);
}
