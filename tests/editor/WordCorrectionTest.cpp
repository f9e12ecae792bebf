#include "app/editor/commands/WordCorrection.h"
#include "tests/editor/Lines.h"

#include <fmt/format.h>

using namespace murbo;

TEST(WordCorrection, isWhatWordsBecameOtherOnes) {
    using Corrections = std::vector<WordCorrection>;
    const struct {
        const char* before;
        const char* after;
        Corrections wanted;
    } cases[] = {
        {"one hart left", "one heart left", {{"hart", "heart"}}},
        {"my croft, and hart!", "Mycroft, and heart!", {{"my croft", "Mycroft"}, {"hart", "heart"}}},
        {"hart and hart", "heart and heart", {{"hart", "heart"}}},
        {"no", "oh my no no", {}},     // words came
        {"so we go now", "we go", {}}, // and went
        {"go, now", "go now!", {}},    // marks are no words
        {"ไม่เป็นไร เดินข้า", "ไม่เป็นไร เดินช้า", {{"ข้า", "ช้า"}}},
        {"", "all new", {}},
    };
    for (const auto& [before, after, wanted] : cases)
        EXPECT_EQ(WordCorrection::between(before, after), wanted) << before;
    const std::string endless(100000, 'a');
    EXPECT_LE(WordCorrection::between(endless, "a").size(), 1U);
    std::string many;
    for (int at = 0; at < 1000; ++at) many += fmt::format("w{} ", at);
    EXPECT_EQ(WordCorrection::between(many, "x " + many), Corrections());
}

TEST(WordCorrection, standsForWholeWordsInEitherCase) {
    const struct {
        WordCorrection word;
        const char* text;
        const char* wanted;
        int places;
    } cases[] = {
        {{"hart", "heart"}, "Hart, hart and HARTS.", "Heart, heart and HARTS.", 2},
        {{"Hart", "Heart"}, "the hart", "the heart", 1}, // a capital that began a sentence
        {{"my croft", "Mycroft"}, "My croft", "Mycroft", 1},
        {{"mycroft", "Mycroft"}, "Mycroft and mycroft", "Mycroft and Mycroft", 1},
        {{"ข้า", "ช้า"}, "เดินข้า ๆ", "เดินช้า ๆ", 1},
        {{"no", "know"}, "", "", 0},
        {{"no", "know"}, "now no", "now know", 1},
        {{"art", "zart"}, "Art", "Zart", 1},
        {{"zero", "ahero"}, "Zero", "Ahero", 1},
    };
    for (const auto& [word, text, wanted, places] : cases) {
        const auto corrected = word.in(text);
        EXPECT_EQ(corrected.text, wanted);
        EXPECT_EQ(corrected.places, places) << text;
    }
}
