#include "core/render/captions/CaptionLayout.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double size = 84;

std::size_t linesAt(const ShapedText& text, double width) {
    return text.lines(width, 1000).size();
}

}

TEST(CaptionLayout, aBlockHasTheFewestLinesAndIsNoWiderThanTheyNeed) {
    for (const char* words : {"this is what we came here to see", "a bb ccc dddd eeeee ffffff ggggggg",
                              "สวัสดีครับวันนี้เราจะมาเล่นเกมกันยาวๆเลย"}) {
        const ShapedText text(words, Fonts::font("", 0.56, size));
        for (double room = 400; room < 2000; room += 83) {
            const double width = CaptionLayout::blockWidth(text, size, room);
            const auto lines = linesAt(text, room);
            EXPECT_EQ(linesAt(text, width), lines) << words << " in " << room;
            EXPECT_LE(width, room);
            const double even = text.width() / double(lines) + 0.8 * size + 1;
            if (lines == 1) {
                EXPECT_EQ(width, room) << words;
            } else if (width > even) {
                EXPECT_GT(linesAt(text, width - 0.5 * size), lines) << room;
            }
        }
    }
}

TEST(CaptionLayout, aBlockIsBoundedByItsAreaToo) {
    const auto block = [](const char* words) {
        return CaptionLayout::lay(ShapedText(words, Fonts::font("", 0.56, 400)),
                                  {.size = 400, .maxWidth = 7000});
    };
    const auto three = block("a\nb\nc");
    ASSERT_TRUE(three);
    EXPECT_EQ(three->width, 7360);
    EXPECT_FALSE(block("a\nb\nc\nd\ne\nf\ng")) << "each side would do";
}
