#include "platform/base/Names.h"
#include "platform/base/Text.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(Names, standAsPeopleExpect) {
    const std::vector<std::filesystem::path> expected{
        "/f/a b/1.mp4",   "/f/clip 1.mp4",    "/f/clip 02.mp4", "/f/clip 2.mp4", "/f/Clip 2.mp4",
        "/f/clip 10.mp4", "/f/clip 10/a.mp4", "/f/zebra.mp4",   "/f/กล้อง 9.mp4", "/f/กล้อง 10.mp4"};
    auto paths = expected;
    for (int turn = 0; turn < 5; ++turn) {
        std::rotate(paths.begin(), paths.begin() + 3, paths.end());
        std::reverse(paths.begin() + turn, paths.end());
        Names::sort(paths);
        EXPECT_EQ(paths, expected);
        EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end(), [](const auto& one, const auto& other) {
            return Names::before(one.native(), other.native());
        }));
    }
}

TEST(Names, noTwoTextsAreEqualUnlessTheyAreTheSame) {
    for (const auto& [one, other] :
         {std::pair{"1", "01"}, {"é", "e\u0301"}, {"\xFF", "\xFE"}, {"", "\u200B"}})
        EXPECT_NE(Names::before(one, other), Names::before(other, one)) << one << " " << other;
    EXPECT_FALSE(Names::before("1", "1"));
}

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
