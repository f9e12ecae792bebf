#include "platform/text/TextPainter.h"
#include "tests/SameBitmaps.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int side = 120;

/// A line of text and where its glyphs stand when it begins at (20, 90).
struct Written {
    ShapedText text;
    std::vector<PlacedGlyph> glyphs;

    Written(const std::string& words, const char* families)
        : text(words, Fonts::font(families, 0, 72)), glyphs(at({20, 90})) {}

    std::vector<PlacedGlyph> at(Point start) const { return text.glyphs(text.lines(1e9, 9).front(), start); }
};

int alpha(const Bitmap& bitmap, int x, int y) {
    return bitmap.row(y)[x * 4 + 3];
}

}

TEST(TextPainter, anEmojiIsMixedWithWhatStandsUnderIt) {
    const Written emoji("😂", "");
    for (const int opacity : {255, 128}) {
        const Colour colour{255, 255, 255, std::uint8_t(opacity)};
        Bitmap bare(side, side);
        TextPainter::fill(bare, emoji.text, emoji.glyphs, colour);
        Bitmap over(side, side);
        for (int y = 0; y < side; ++y) std::fill_n(over.row(y), side * 4, std::uint8_t(255));
        TextPainter::fill(over, emoji.text, emoji.glyphs, colour);
        for (int y = 0; y < side; ++y)
            for (int at = 0; at < side * 4; ++at) {
                const int left = 255 - alpha(bare, at / 4, y);
                ASSERT_NEAR(over.row(y)[at], bare.row(y)[at] + left, 1) << at / 4 << ", " << y;
            }
    }
}

TEST(TextPainter, whatReachesOverTheEdgeIsCutOff) {
    for (const char* words : {"😂", "Rg"}) {
        const Written written(words, "");
        Bitmap whole(side, side);
        TextPainter::fill(whole, written.text, written.glyphs, Colour::white);
        for (const Point shift : {Point{-45, -55}, Point{60, 20}, Point{0, -93}}) {
            Bitmap part(side, side);
            TextPainter::fill(part, written.text, written.at({20 + shift.x, 90 + shift.y}), Colour::white);
            Bitmap expected(side, side);
            for (int y = 0; y < side; ++y)
                for (int x = 0; x < side; ++x) {
                    const int fromX = x - int(shift.x);
                    const int fromY = y - int(shift.y);
                    if (fromX >= 0 && fromY >= 0 && fromX < side && fromY < side)
                        std::memcpy(expected.row(y) + x * 4, whole.row(fromY) + fromX * 4, 4);
                }
            EXPECT_TRUE(same(part, expected)) << words << " moved by " << shift.x;
        }
    }
}

TEST(TextPainter, anOutlineIsRoundAtSharpCorners) {
    if (!Fonts::installed("Noto Sans")) GTEST_SKIP() << "Noto Sans is not installed.";
    const Written bar("l", "Noto Sans"); // an upright rectangle
    Bitmap bitmap(side, side);
    TextPainter::outline(bitmap, bar.text, bar.glyphs, 24, Colour::white);
    int left = side;
    int bottom = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (alpha(bitmap, x, y) > 127) left = std::min(left, x), bottom = std::max(bottom, y);
    EXPECT_EQ(alpha(bitmap, left + 1, bottom - 1), 0);
    EXPECT_GT(alpha(bitmap, left + 5, bottom - 5), 200) << "no bevel: 12 · (1 - √½) = 3.5";
}

TEST(TextPainter, boxesThatTouchShareTheirSidesAndOthersStayApart) {
    const Rect wide{10, 10, 100, 40};
    for (const int top : {46, 50, 51}) {
        Bitmap bitmap(side, side);
        TextPainter::boxes(bitmap, {wide, {30, double(top), 60, 40}}, 16, Colour::white);
        const bool touch = top <= 50;
        for (const int x : {30, 89}) // what would be the corners of the lower box
            EXPECT_EQ(alpha(bitmap, x, top + 5) == 255, touch) << top;
        for (const int x : {10, 109}) EXPECT_EQ(alpha(bitmap, x, 49), 0) << "the wider box keeps its own";
        for (const int x : {30, 89}) EXPECT_EQ(alpha(bitmap, x, top + 39), 0);
    }
}
