#include "core/render/plan/CaptionText.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

namespace {

using Texts = std::vector<std::string>;

Texts texts(const std::string& text, const std::vector<CaptionText::Range>& ranges) {
    Texts found;
    for (const auto range : ranges) found.push_back(text.substr(range.from, range.to - range.from));
    return found;
}

std::string joined(const Texts& texts) {
    std::string all;
    for (const auto& text : texts) all += text;
    return all;
}

}

TEST(CaptionText, tagsInBracketsAreNeverSaid) {
    const std::vector<std::pair<std::string, std::string>> table = {
        {"[music]", ""},     {"  hello\t", "hello"},         {"so [laughs] funny", "so   funny"},
        {"[a [b] c]", "c]"}, {"open [ended", "open [ended"}, {"[two\nlines] here", "here"},
        {"[]", ""},          {"[a] b [c] d", "b   d"},       {"\u00A0ครับ\u3000", "ครับ"},
        {"a\n", "a\n"},
    };
    for (const auto& [text, said] : table) EXPECT_EQ(CaptionText::said(text), said) << text;
    EXPECT_EQ(CaptionText::said(std::string(1'000'000, '[')).size(), 1'000'000u);
}

TEST(CaptionText, countsWhatAPersonWouldCount) {
    const std::vector<std::pair<std::string, std::size_t>> table = {
        {"", 0},
        {"abc", 3},
        {"ครับ", 3},
        {"น้ำ", 1},
        {"é", 1},
        {"日本語", 3},
        {"👨‍👩‍👧‍👦🇹🇭", 2},
        {"\xFF\xFE", 2},
        {"한국", 2},
    };
    for (const auto& [text, count] : table) EXPECT_EQ(CaptionText::count(text), count) << text;
}

TEST(CaptionText, wordsOfEveryScript) {
    const std::vector<std::pair<std::string, Texts>> table = {
        {"Hello, world! It's 3.14 %", {"Hello,", "world!", "It's", "3.14", "%"}},
        {"สวัสดีครับ", {"สวัสดี", "ครับ"}},
        {"เกมROVกับครับ555", {"เกม", "ROV", "กับ", "ครับ", "555"}},
        {"เร็วๆ", {"เร็วๆ"}},
        {"เด็ก ๆ ชอบ", {"เด็ก ๆ", "ชอบ"}},
        {"ๆ", {"ๆ"}},
        {" ๆ", {" ๆ"}},
        {"日本語テスト", {"日本語", "テスト"}},
        {"한국어 자막", {"한국어", "자막"}},
        {"lol😂🔥", {"lol😂🔥"}},
        {"lol 😂🔥 yes", {"lol", "😂🔥", "yes"}},
        {"wait , what", {"wait", ",", "what"}},
        {"\"quoted\"", {"\"", "quoted\""}},
        {"", {}},
        {" \n ", {}},
    };
    for (const auto& [text, words] : table) EXPECT_EQ(texts(text, CaptionText::words(text)), words) << text;
}

TEST(CaptionText, latinPhrasesInThaiStayTogetherUpToTheirLength) {
    const std::string mixed = "ใช้ Final Cut Pro ดี";
    EXPECT_THAT(texts(mixed, CaptionText::units(mixed, 24)),
                ElementsAre("ใช้", " ", "Final Cut Pro", " ", "ดี"));
    EXPECT_THAT(texts(mixed, CaptionText::units(mixed, 9)),
                ElementsAre("ใช้", " ", "Final Cut", " ", "Pro", " ", "ดี"));
    const std::string latin = "Final Cut Pro";
    EXPECT_THAT(texts(latin, CaptionText::units(latin, 24)), ElementsAre("Final", " ", "Cut", " ", "Pro"));
}

TEST(CaptionText, unitsCoverTheTextWithoutGap) {
    for (const std::string text :
         {"วันนี้เล่น ROV กับ พี่ๆ  555+ 😂!", "a\xFF\xC0\x80z [x", "  ", "ฯลฯ ๆๆ", "\u200Bกข\u200B"}) {
        std::size_t at = 0;
        for (const auto unit : CaptionText::units(text, 24)) {
            EXPECT_EQ(unit.from, at) << text;
            EXPECT_GT(unit.to, unit.from) << text;
            at = unit.to;
        }
        EXPECT_EQ(at, text.size()) << text;
    }
}

TEST(CaptionText, piecesAreBalancedAndBreakAtSpaces) {
    struct Row {
        std::string text;
        std::int64_t max;
        Texts pieces;
    };
    const std::vector<Row> table = {
        {"exactly ten", 11, {"exactly ten"}},
        {" as it stands ", 99, {" as it stands "}},
        {"eleven chars", 11, {"eleven", "chars"}},
        {"one two three four five six seven", 24, {"one two three", "four five six seven"}},
        {"สวัสดีครับวันนี้เราจะมาเล่นเกม", 12, {"สวัสดีครับวันนี้", "เราจะมาเล่นเกม"}},
        {"สวัสดีครับ วันนี้เราจะมาเล่นเกม", 12, {"สวัสดีครับ", "วันนี้เราจะมาเล่นเกม"}},
        {"สวัสดี ครับวันนี้เราจะมาเล่นเกม", 12, {"สวัสดี ครับวันนี้", "เราจะมาเล่นเกม"}}, // too far off
        {"ab cd", 0, {"ab", "cd"}},
        {"ab cd", -7, {"ab", "cd"}},
        {"unbreakable", 3, {"unbreakable"}},
        {"    ", 1, {"    "}},
        {"", 0, {""}},
        {"hi, you", 4, {"hi,", "you"}},
    };
    for (const auto& row : table) EXPECT_EQ(CaptionText::pieces(row.text, row.max), row.pieces) << row.text;
}

TEST(CaptionText, aPieceNeverBeginsWithTheRepetitionMark) {
    const std::string text = "เด็ก ๆ ชอบเล่นเกมเร็ว ๆ มากๆ ทุกวัน ๆ";
    for (int max = 1; max < 30; ++max)
        for (const auto& piece : CaptionText::pieces(text, max))
            EXPECT_FALSE(piece.starts_with("ๆ")) << piece;
}

TEST(CaptionText, piecesLoseNothingButBlanksAndTakeNoTime) {
    std::string text;
    while (text.size() < 200'000) text += "วันนี้เราจะไป Bangkok กัน 😂 ok? ";
    for (const std::int64_t max : {0, 7, 24, 1000}) {
        std::string said = joined(CaptionText::pieces(text, max));
        std::string asked = text;
        std::erase(said, ' ');
        std::erase(asked, ' ');
        EXPECT_EQ(said, asked) << max;
    }
}
