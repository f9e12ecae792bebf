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
        for (const Point shift : {Point{-45, 25}, Point{60, 20}, Point{0, -93}}) {
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
    const double radius = 16;
    const Colour colour{200, 100, 50, 180};
    for (const int top : {46, 50, 51}) {
        const std::vector<Rect> boxes{{10, 10, 100, 40}, {30, double(top), 60, 38}, {50, 95, 30, 20}};
        Bitmap bitmap(side, side);
        TextPainter::boxes(bitmap, boxes, radius, colour);
        const auto inside = [&](double x, double y) {
            const bool joint = top <= 50 && x >= 30 && x <= 90 && y >= 30 && y <= top + 19;
            return joint || std::any_of(boxes.begin(), boxes.end(), [&](const Rect& box) {
                       const double corner = std::min(radius, box.height / 2);
                       return std::hypot(std::max({box.x + corner - x, x - box.right() + corner, 0.0}),
                                         std::max({box.y + corner - y, y - box.bottom() + corner, 0.0})) <=
                              corner;
                   });
        };
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x) {
                double share = 0; // of the pixel's area
                for (int part = 0; part < 64; ++part)
                    share += inside(x + (part % 8 + 0.5) / 8, y + (part / 8 + 0.5) / 8) / 64.0;
                const double alpha = share * colour.alpha;
                const std::array<double, 4> expected{colour.blue * alpha / 255, colour.green * alpha / 255,
                                                     colour.red * alpha / 255, alpha};
                for (std::size_t channel = 0; channel < 4; ++channel)
                    ASSERT_NEAR(bitmap.row(y)[x * 4 + int(channel)], expected[channel], 20) << x << ", " << y;
            }
    }
}
