#include "core/render/plan/StageValue.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(StageValue, fillParametersIn) {
    const Values values{
        {"title", "Hi"}, {"title2", "Ho"}, {"emote", "smile"}, {"ชื่อ", "สวัสดี"}, {"loop", "$loop$loop"}};
    struct Case {
        std::string text;
        std::optional<std::string> filled;
    };
    for (const auto& [text, filled] :
         {Case{"plain", "plain"}, Case{"$title", "Hi"}, Case{"$nobody", std::nullopt}, Case{"$", "$"},
          Case{"$title2 and $title", "Ho and Hi"}, Case{"$titles!", "His!"},
          Case{"assets/$emote.png", "assets/smile.png"}, Case{"5 $ or $none", "5 $ or $none"},
          Case{"$ชื่อ", "สวัสดี"}, Case{"$title-b", "Hi-b"}, Case{"a $loop", "a $loop$loop"}})
        EXPECT_EQ(Stage::value(text, values), filled) << text;
    EXPECT_EQ(Stage::value(std::nullopt, values), std::nullopt);
}

TEST(StageValue, growNoTextWithoutBound) {
    const Values values{{"a", std::string(1'000'000, 'x')}};
    std::string many;
    for (int i = 0; i < 100'000; ++i) many += "$a$b";
    EXPECT_LE(Stage::value(many, values)->size(), 100'000u);
    EXPECT_LE(Stage::value("$a", values)->size(), 100'000u);
}
