#include "app/desktop/transcript/SpokenWord.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(SpokenWord, goesOverTheLineAsTimeDoes) {
    const struct {
        const char* line;
        double share;
        const char* word;
    } cases[] = {{"no no the floor", 0, "no"},
                 {"no no the floor", 0.5, "the"},
                 {"no no the floor", 1, "floor"},
                 {"no no the floor", 7, "floor"},
                 {"no no the floor", -1, "no"},
                 {"ไม่เป็นไร เดินช้า", 0.99, "ช้า"},
                 {"a 👩‍👩‍👧 b", 0.5, "👩‍👩‍👧"},
                 {"", 0.5, ""},
                 {"   ", 0.5, ""}};
    for (const auto& [line, share, word] : cases) {
        const auto text = QString::fromUtf8(line);
        const auto [from, to] = SpokenWord::at(text, share);
        EXPECT_EQ(text.mid(from, to - from), QString::fromUtf8(word)) << line << " at " << share;
    }
}

TEST(SpokenWord, aPlaceInTheLineIsAShareOfItsTime) {
    EXPECT_EQ(SpokenWord::share("abcd", 2), 0.5);
    EXPECT_EQ(SpokenWord::share("abcd", 9), 1);
    EXPECT_EQ(SpokenWord::share("", 3), 0);
}
