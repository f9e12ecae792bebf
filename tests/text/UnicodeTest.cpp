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

TEST(Unicode, wordsEndAtABorderOfScriptsAndKeepTheirRepetitionMark) {
    const std::vector<std::pair<std::string, std::vector<std::size_t>>> table = {
        {"เร็วๆ", {15}}, {"เด็ก ๆ", {16}},      {"เด็ก ๆ ok", {16, 17, 19}},          {" ๆ", {4}},
        {"ๆ", {3}},     {"人 々", {3, 4, 7}}, {"เกมROVกับ5ៗ", {9, 12, 21, 22, 25}},
    };
    for (const auto& [text, ends] : table) EXPECT_EQ(Unicode::wordEnds(text), ends) << text;
}

TEST(Unicode, onlyEmojiAreThoseThatAreDrawnInColour) {
    for (const char* text : {"😂", "❤️ 🔥", "😂\n🔥", "😂\r\n\t❤️\u2028", "1️⃣", "👍🏽 😂",
                             "🇹🇭", "👨‍👩‍👧"})
        EXPECT_TRUE(Unicode::isOnlyEmoji(text)) << text;
    for (const char* text :
         {"", " ", "\r\n", "a", "a\n😂", "1", "❤︎", "😂︎", "😂a", "😂a😂", "©", "😂 ok", "★"})
        EXPECT_FALSE(Unicode::isOnlyEmoji(text)) << text;
}

TEST(Unicode, trimsBlanksAndTabsOfEitherEndAlone) {
    for (const auto& [text, bare] :
         {std::pair{" \ta b\u3000", "a b"}, {"\n a\n", "\n a\n"}, {"\u00A0ก\t", "ก"}, {" \t", ""}, {"", ""}})
        EXPECT_EQ(Unicode::trimmed(text), bare);
    EXPECT_EQ(Unicode::characterCount("กำ👨‍👩‍👧e\u0301\r\n"), 4u);
    for (const char32_t mark : {U'!', U'“', U'+', U'♪', U'😂'})
        EXPECT_TRUE(Unicode::isMark(mark)) << int(mark);
    for (const char32_t none : {U'a', U'1', U' ', U'ก', U'\u0301'})
        EXPECT_FALSE(Unicode::isMark(none)) << int(none);
}
