#include "platform/base/Text.h"
#include "platform/text/FontChoice.h"
#include "platform/text/ShapedText.h"

#include <fmt/format.h>
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

TEST(FontChoice, everyLetterComesFromTheFirstFamilyMeantForIt) {
    if (!Fonts::installed("Nunito")) GTEST_SKIP() << "The rounded faces are not fetched.";
    // A text, families asked for, then the language and each stretch with its family and weight.
    for (const auto& [text, families, choice] : std::vector<std::array<const char*, 3>>{
             {"Hi ครับ ok", "", "en|Hi Murbo Rounded 800|ครับ Murbo Rounded Thai 500|ok Murbo Rounded 800"},
             {"aกa", "Noto Sans Thai, Noto Serif",
              "en|a Noto Serif 800|ก Noto Sans Thai 800|a Noto Serif 800"},
             {"今日。！", "Noto Sans", "ja|今日。！ Murbo Rounded Japanese 740"},
             {"今们！", "", "zh-cn|今们！ Noto Sans CJK SC 800"},
             {"カ们", "", "ja|カ Murbo Rounded Japanese 740|们 Noto Sans CJK JP 800"},
             {"ㄅ今", "", "zh-tw|ㄅ今 Noto Sans CJK TC 800"},
             {"a한今，", "Noto Serif", "ko|a Noto Serif 800|한今， Noto Sans CJK KR 800"},
             {"∀≐", "", "en|∀≐ DejaVu Sans 800"},
             {"ݐ", "", "en|ݐ Noto Sans Arabic 800"},
             {"1️⃣ ❤️", "Noto Sans",
              "en|1️⃣ Noto Color Emoji 800| Noto Sans 800|❤️ Noto Color Emoji 800"}}) {
        const auto chosen = FontChoice::choose(text, Fonts::font(families, 0.56, 84));
        std::string all = chosen.language;
        for (const auto& run : chosen.runs)
            all += fmt::format("|{} {} {}",
                               Text::trimmed(std::string_view(text).substr(run.from, run.to - run.from)),
                               run.family, run.weight);
        EXPECT_EQ(all, choice);
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
