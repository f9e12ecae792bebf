#include "platform/text/Unicode.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Unicode, brokenBytesAreCharactersOfTheirOwnAndNeverLost) {
    const std::string broken = "a\xFF\xE0\xB8z\xF0\x9F";
    for (const auto& ends :
         {Unicode::characterEnds(broken), Unicode::wordEnds(broken), Unicode::lineEnds(broken)}) {
        ASSERT_FALSE(ends.empty());
        EXPECT_EQ(ends.back(), broken.size());
        EXPECT_TRUE(std::is_sorted(ends.begin(), ends.end()));
    }
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
