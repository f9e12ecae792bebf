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
    const ShapedText both("今们", plain(84));
    const auto glyphs = both.glyphs(both.lines(noLimit, 9).front(), {});
    ASSERT_EQ(glyphs.size(), 2u);
    EXPECT_EQ(glyphs[0].font, glyphs[1].font);
}

TEST(FontChoice, whatNoFontHasIsNamedAndLeftOut) {
    const ShapedText shaped("a\uE000b", plain(84));
    EXPECT_THAT(shaped.missing(), ElementsAre(0xE000));
    EXPECT_EQ(shaped.glyphs(shaped.lines(noLimit, 9).front(), {}).size(), 2u);
    EXPECT_TRUE(
        ShapedText("ปั๊มน้ำ ผู้ใหญ่ नमस्ते مرحبا 한국어 Ελλάδα tiếng Việt ♪ ★ ✓", plain(84)).missing().empty());
}
