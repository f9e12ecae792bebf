#include "tests/ai/ByTag.h"

using namespace murbo;
using nlohmann::json;

using CaptionsByTagTest = ByTag;

TEST_F(CaptionsByTagTest, captionsReplaceWhatWasChosenAndKeepTheRest) {
    const auto& lines = Footage::lines();
    look().captions.lines.edit() = {{.line = lines[1].id, .hidden = true, .stress = {{1}}},
                                    {.line = lines[2].id, .big = true}};
    EXPECT_EQ(captions({"C01.02", "C01.04"}, nullptr,
                       json::parse(R"([{"line": "C01.02", "pieces": [" two", "words "]},
                                       {"line": "C09.01", "pieces": ["two"]}, 7,
                                       {"line": "C01.03", "pieces": ["thre"]}])")),
              "V1: 1 big, 0 hidden, 1 broken by hand. Left out: C01.04: not a line the video plays; "
              "C09.01: not a line the video plays; (nothing): not a line the video plays; "
              "C01.03: its pieces are not its words.");
    ASSERT_EQ(look().captions.lines.size(), 1u) << "an entry that says nothing any more is dropped";
    EXPECT_EQ(look().captions.lines[0], (CaptionLine{.line = lines[1].id,
                                                     .pieces = {{{.text = "two"}, {.text = "words"}}},
                                                     .big = true,
                                                     .stress = {{1}}}));

    look().captions.lines.edit()[0].pieces->at(0).until = 0.3;
    for (const auto& [first, second, until] :
         {std::tuple{"two", "words", std::optional(0.3)}, {"tw", "o words", std::nullopt}}) {
        captions(nullptr, nullptr, json::array({{{"line", "C01.02"}, {"pieces", {first, second}}}}));
        EXPECT_EQ(look().captions.lines[0].pieces->at(0).until, until) << first;
    }
}
