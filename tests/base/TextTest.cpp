#include "platform/base/Text.h"

#include <array>

#include <gtest/gtest.h>

namespace murbo {

TEST(Text, trimsWhatItSaysAndNoMore) {
    EXPECT_EQ(Text::trimmedOfBlanks(" \t\u00A0\u3000a b\u2003 "), "a b");
    EXPECT_EQ(Text::trimmedOfBlanks(" \n a "), "\n a");
    EXPECT_EQ(Text::trimmed(" \r\n a\n\u2028"), "a");
    EXPECT_EQ(Text::trimmed(" \xFF "), "\xFF");
    EXPECT_EQ(Text::trimmedOfBlanks("\t "), "");
}

TEST(Text, comparesWithoutCaseInEveryScript) {
    EXPECT_TRUE(Text::sameIgnoringCase("STRASSE.MP4", "straße.mp4"));
    EXPECT_TRUE(Text::sameIgnoringCase("Ελλάς", "ΕΛΛΆΣ"));
    EXPECT_FALSE(Text::sameIgnoringCase("a", "ab"));
    EXPECT_EQ(Text::lowercased("ÀB1"), "àb1");
}

TEST(Text, isRepairedOnlyWhereItIsBroken) {
    EXPECT_EQ(Text::repaired("สวัส"), "สวัส");
    EXPECT_EQ(Text::repaired("a\xFF"
                             "b\xE0\xB8"),
              "a\uFFFDb\uFFFD");
    for (const char* broken : {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80"})
        EXPECT_FALSE(Text::isUtf8(broken));
}

TEST(Text, beginsWithWholeCharactersAlone) {
    const std::string text = "aé€😂b"; // 1, 2, 3, 4 and 1 bytes
    constexpr std::array<std::size_t, 13> whole{0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 11, 11};
    for (std::size_t max = 0; max < whole.size(); ++max)
        EXPECT_EQ(Text::beginning(text, max), text.substr(0, whole[max])) << max;
    EXPECT_EQ(Text::beginning("\x80\x80\x80", 2), "");
}

TEST(Text, losesAllWhiteSpaceAndNothingElse) {
    EXPECT_EQ(Text::withoutWhiteSpace(" a\n\u00A0 b\u2028\xFF\u3000ก\t"), "ab\xFFก");
    EXPECT_EQ(Text::withoutWhiteSpace("\r\n"), "");
}

}
