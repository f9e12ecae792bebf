#include "platform/text/ShapedText.h"

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using testing::ElementsAre;

namespace {

constexpr double noLimit = 1e9;

Font plain(double size, double weight = 0.56) {
    return Fonts::font("", weight, size);
}

std::vector<std::string> texts(const std::string& text, double width, double size = 84) {
    std::vector<std::string> found;
    for (const auto& line : ShapedText(text, plain(size)).lines(width, 1000))
        found.push_back(text.substr(line.from, line.to - line.from));
    return found;
}

double widthOf(const std::string& text, const Font& font) {
    return ShapedText(text, font).width();
}

}

TEST(ShapedText, widthsGrowEvenlyWithTheSize) {
    const std::string text = "Hello WORLD สวัสดีครับ 日本語 AVA";
    const double share = widthOf(text, plain(1000)) / 1000;
    for (const double size : {21.0, 42.0, 63.5, 84.0, 168.0})
        EXPECT_NEAR(widthOf(text, plain(size)) / size, share, 0.0015) << size;
}

TEST(ShapedText, lettersOfOtherFontsDoNotMoveTheLines) {
    const ShapedText latin("Hello", plain(84));
    for (const char* text : {"Hello 日本語", "Hello 😂", "Hello 한국어"}) {
        const ShapedText mixed(text, plain(84));
        EXPECT_EQ(mixed.ascent(), latin.ascent()) << text;
        EXPECT_EQ(mixed.descent(), latin.descent()) << text;
    }
    for (const char* tall : {"ปั๊มน้ำ", "नमस्ते", "مرحبا"}) {
        EXPECT_NEAR(ShapedText(tall, plain(84)).ascent(), 1.1 * 84, 1e-9) << tall;
        EXPECT_NEAR(ShapedText(tall, plain(84)).descent(), 0.35 * 84, 1e-9) << tall;
    }
    EXPECT_LT(latin.descent(), 0.3 * 84);
}

TEST(ShapedText, blanksAtTheEndsOfALineCountForNothing) {
    const double bare = widthOf("Hello there", plain(84));
    for (const char* text : {"Hello there   ", "  Hello there", "Hello there \n", "\tHello there\u3000"})
        EXPECT_NEAR(widthOf(text, plain(84)), bare, 0.01) << text;
}

TEST(ShapedText, aLineAloneIsAsWideAsItWasMeasured) {
    const std::string text = "Hello WORLD สวัสดีครับ ภาษาไทย 日本語 😂🔥 مرحبا بالعالم again";
    const ShapedText shaped(text, plain(84));
    for (const auto& line : shaped.lines(400, 100))
        EXPECT_NEAR(widthOf(text.substr(line.from, line.to - line.from), plain(84)), line.width, 0.05);
}

TEST(ShapedText, breaksInWholeWordsOfEveryScript) {
    EXPECT_THAT(texts("a\nb\r\nc\u2028d", noLimit), ElementsAre("a", "b", "c", "d"));
    EXPECT_THAT(texts("", 100), ElementsAre());
    struct Row {
        const char* text;
        const char* room; ///< the width there is
        std::vector<std::string> lines;
    };
    const std::vector<Row> table = {
        {"one two three", "one two", {"one two", "three"}},
        {"one two three", "one two th", {"one two", "three"}},
        {"日本語のテスト", "日本語のテ", {"日本語の", "テスト"}},
        {"กรุงเทพมหานครสวัสดี", "กรุงเทพมหานครส", {"กรุงเทพมหานคร", "สวัสดี"}},
        {"ไป เด็ก ๆ", "ไป เด็ก", {"ไป", "เด็ก ๆ"}},
        {"well-known", "well-kn", {"well-", "known"}},
    };
    for (const auto& row : table)
        EXPECT_EQ(texts(row.text, widthOf(row.room, plain(84))), row.lines) << row.text;
}

TEST(ShapedText, aWordTooLongIsBrokenBetweenLetters) {
    const auto lines = texts("no unbreakableeeeeeeeeeeeeeeee yes", 300);
    EXPECT_EQ(lines.front(), "no");
    std::string all;
    for (const auto& line : lines) {
        EXPECT_LE(widthOf(line, plain(84)), 300.1) << line;
        all += line;
    }
    std::erase(all, ' ');
    EXPECT_EQ(all, "nounbreakableeeeeeeeeeeeeeeeeyes");
    EXPECT_THAT(texts("ที่นี่", 1), ElementsAre("ที่", "นี่"));
}

TEST(ShapedText, countingStopsSoonAfterTheMostLines) {
    std::string text;
    for (int word = 0; word < 3000; ++word) text += "word ";
    EXPECT_LT(ShapedText(text, plain(84)).lines(200, 3).size(), 6u);
    const ShapedText four("a\nb\nc\nd", plain(84));
    EXPECT_EQ(four.lines(noLimit, 4).size(), 4u) << "as many as may be";
    EXPECT_GT(four.lines(noLimit, 3).size(), 3u) << "one more says that there are too many";
}

TEST(ShapedText, everyWeightIsAnotherFace) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The rounded faces are not fetched.";
    for (const char* text : {"mmmmmmmm", "กกกกกกกก"}) {
        std::set<double> widths;
        for (const double weight : {0.0, 0.4, 0.56}) widths.insert(widthOf(text, plain(84, weight)));
        EXPECT_EQ(widths.size(), 3u) << text;
    }
}

TEST(ShapedText, controlsAndBrokenBytesDrawNothing) {
    const ShapedText shaped(std::string("a\0\x01\xFF\x7F b", 7), plain(84));
    EXPECT_TRUE(shaped.missing().empty());
    EXPECT_EQ(shaped.lines(noLimit, 9).size(), 1u);
    EXPECT_NEAR(shaped.width(), widthOf("a     b", plain(84)), 0.05) << "each is a blank";
}
