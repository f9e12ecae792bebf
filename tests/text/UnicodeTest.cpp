#include "platform/text/Unicode.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Unicode, upperIsTheSameInEveryLocale) {
    const std::vector<std::pair<std::string, std::string>> table = {
        {"istanbul", "ISTANBUL"}, {"straße", "STRASSE"}, {"ครับ", "ครับ"}, {"ελλάδα", "ΕΛΛΆΔΑ"}, {"", ""},
    };
    for (const auto& [text, upper] : table) EXPECT_EQ(Unicode::upper(text), upper);
}

TEST(Unicode, brokenBytesAreCharactersOfTheirOwnAndNeverLost) {
    const std::string broken = "a\xFF\xE0\xB8z\xF0\x9F";
    for (const auto& ends :
         {Unicode::characterEnds(broken), Unicode::wordEnds(broken), Unicode::lineEnds(broken)}) {
        ASSERT_FALSE(ends.empty());
        EXPECT_EQ(ends.back(), broken.size());
        EXPECT_TRUE(std::is_sorted(ends.begin(), ends.end()));
    }
}

TEST(Unicode, linesMayEndBetweenThaiWordsAndAfterBlanks) {
    const std::string text = "สวัสดีครับ ok";
    const std::vector<std::size_t> ends{18, 31, 33};
    EXPECT_EQ(Unicode::lineEnds(text), ends);
}

TEST(Unicode, aRepetitionMarkBelongsToTheWordBeforeItAlsoAfterABlank) {
    const std::vector<std::pair<std::string, std::vector<std::size_t>>> table = {
        {"เร็วๆ", {15}}, {"เด็ก ๆ", {16}}, {"เด็ก ๆ ok", {16, 17, 19}},
        {" ๆ", {4}},    {"ๆ", {3}},      {"人 々", {3, 4, 7}},
    };
    for (const auto& [text, ends] : table) EXPECT_EQ(Unicode::wordEnds(text), ends) << text;
}
