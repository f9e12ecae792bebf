#include "platform/text/ShapedText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using testing::ElementsAre;

namespace {

constexpr double noLimit = 1e9;

Font plain(double size) {
    return Fonts::font("", 0.56, size);
}

}

TEST(FontChoice, lettersComeFromTheFirstFamilyThatHasThem) {
    const ShapedText shaped("aกa", Fonts::font("Noto Sans Thai, Noto Sans", 0.4, 84));
    const ShapedText thai("ก", Fonts::font("Noto Sans Thai", 0.4, 84));
    const ShapedText latin("a", Fonts::font("Noto Sans", 0.4, 84));
    EXPECT_NEAR(shaped.width(), thai.width() + 2 * latin.width(), 0.05);
}

TEST(FontChoice, chineseIsSetInOneFaceThroughout) {
    // 们 is in no Japanese font, 今 is in all of them.
    const ShapedText han("今们", plain(84));
    const auto glyphs = han.glyphs(han.lines(noLimit, 9).front(), {});
    ASSERT_EQ(glyphs.size(), 2u);
    EXPECT_EQ(glyphs[0].font, glyphs[1].font);
    for (const char* text : {"们！", "カ！", "カ。", "們，", "한，"}) {
        const ShapedText marked(text, plain(84));
        const auto both = marked.glyphs(marked.lines(noLimit, 9).front(), {});
        ASSERT_EQ(both.size(), 2u) << text;
        EXPECT_EQ(both[0].font, both[1].font) << text << ": with the marks of its script";
    }
}

TEST(FontChoice, joinersAndSelectorsTakeNoOtherFamily) {
    const ShapedText bare("ab", plain(84));
    for (const char* text : {"a\u200Db", "a\u200Cb", "a\uFE0Eb", "a\u2060b"})
        EXPECT_NEAR(ShapedText(text, plain(84)).width(), bare.width(), 0.05) << text;
}

TEST(FontChoice, whatNoFontHasIsNamedAndLeftOut) {
    const ShapedText shaped("a\uE000b", plain(84));
    EXPECT_THAT(shaped.missing(), ElementsAre(0xE000));
    EXPECT_EQ(shaped.glyphs(shaped.lines(noLimit, 9).front(), {}).size(), 2u);
    EXPECT_TRUE(
        ShapedText("ปั๊มน้ำ ผู้ใหญ่ नमस्ते مرحبا 한국어 Ελλάδα tiếng Việt ♪ ★ ✓", plain(84)).missing().empty());
}
