#include "platform/text/Fonts.h"
#include "platform/text/GlyphCache.h"
#include "platform/text/GlyphDrawing.h"
#include "platform/text/ShapedText.h"

#include <numeric>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// One letter as it is shaped; its font lives as long as this.
struct OneLetter {
    explicit OneLetter(const char* letter, double size = 72) : text(letter, Fonts::font("", 0, size)) {
        const auto glyphs = text.glyphs(text.lines(1e9, 9).front(), {0, 0});
        font = glyphs.front().font;
        glyph = glyphs.front().glyph;
    }
    GlyphPicture draw(double x = 0, double y = 0, double stroke = 0) const {
        return GlyphDrawing::draw(font, glyph, x, y, stroke);
    }
    ShapedText text;
    PangoFont* font = nullptr;
    PangoGlyph glyph = 0;
};

/// The sum of all coverage in pixels.
double ink(const GlyphPicture& picture) {
    return std::accumulate(picture.alpha.begin(), picture.alpha.end(), 0.0) / 255;
}

/// The middle of the ink, from the pen.
std::pair<double, double> middle(const GlyphPicture& picture) {
    double x = 0, y = 0;
    for (std::size_t at = 0; at < picture.alpha.size(); ++at) {
        x += picture.alpha[at] * (picture.left + double(at % std::size_t(picture.width)));
        y += picture.alpha[at] * (picture.top + double(at / std::size_t(picture.width)));
    }
    return {x / (ink(picture) * 255), y / (ink(picture) * 255)};
}

/// Whether no ink touches the edge of the picture: nothing was cut off.
bool hasMargin(const GlyphPicture& picture) {
    const auto at = [&](int x, int y) { return picture.alpha[std::size_t(y * picture.width + x)]; };
    for (int x = 0; x < picture.width; ++x)
        if (at(x, 0) || at(x, picture.height - 1)) return false;
    for (int y = 0; y < picture.height; ++y)
        if (at(0, y) || at(picture.width - 1, y)) return false;
    return true;
}

}

TEST(GlyphDrawing, aLetterMovesWithItsPenAndIsWhole) {
    const OneLetter letter("R", 144);
    const auto still = letter.draw();
    ASSERT_GT(still.width, 20);
    EXPECT_EQ(still.alpha.size(), std::size_t(still.width * still.height));
    EXPECT_TRUE(still.colours.empty());
    EXPECT_TRUE(hasMargin(still));
    EXPECT_LT(still.top, -40) << "it stands on its line";
    const auto moved = letter.draw(0.5, 0.25);
    EXPECT_NEAR(middle(moved).first - middle(still).first, 0.5, 0.04);
    EXPECT_NEAR(middle(moved).second - middle(still).second, 0.25, 0.04);
    EXPECT_NEAR(ink(moved), ink(still), 3);
}

TEST(GlyphDrawing, aLineGoesAlongTheOutlineAndFillsSmallHoles) {
    const OneLetter letter("O");
    const auto filled = letter.draw();
    const auto thin = letter.draw(0, 0, 2);
    const auto thick = letter.draw(0, 0, 12);
    EXPECT_TRUE(hasMargin(thin) && hasMargin(thick));
    EXPECT_NEAR(thick.width - thin.width, 10, 1.01);
    EXPECT_NEAR(ink(thick) / ink(thin), 4.5, 1) << "six times as wide, where the hole leaves room";
    EXPECT_GT(ink(filled), ink(thin));
    const auto& at = [](const GlyphPicture& picture, double x, double y) {
        return picture.alpha[std::size_t((int(y) - picture.top) * picture.width + int(x) - picture.left)];
    };
    const auto [x, y] = middle(filled);
    EXPECT_EQ(at(thin, x, y), 0) << "the hole of an O";
}

TEST(GlyphDrawing, anEmojiHasColoursAndAShapeAsItsLine) {
    const OneLetter emoji("😂");
    const auto plain = emoji.draw();
    if (plain.colours.empty()) GTEST_SKIP() << "No colour font is installed.";
    ASSERT_EQ(plain.colours.size(), 4 * plain.alpha.size());
    for (std::size_t at = 0; at < plain.alpha.size(); ++at)
        ASSERT_EQ(plain.alpha[at], plain.colours[4 * at + 3]);
    const auto ringed = emoji.draw(0, 0, 8);
    EXPECT_TRUE(ringed.colours.empty());
    const auto radius = [](const GlyphPicture& round) { return std::sqrt(ink(round) / 3.1416); };
    EXPECT_NEAR(radius(ringed) - radius(plain), 4, 1.5) << "half the line lies outside";
    EXPECT_NEAR(ringed.width - plain.width, 8, 2);
}

TEST(GlyphDrawing, whatIsBlankOrTooLargeIsEmpty) {
    const OneLetter letter("R");
    const OneLetter huge("R", 20'000);
    EXPECT_EQ(huge.draw().width, 0);
    EXPECT_TRUE(huge.draw().alpha.empty());
    const OneLetter two("a b");
    const auto glyphs = two.text.glyphs(two.text.lines(1e9, 9).front(), {0, 0});
    for (const auto& glyph : glyphs) {
        if (glyph.at != 1) continue;
        EXPECT_EQ(GlyphDrawing::draw(glyph.font, glyph.glyph, 0, 0, 5).width, 0) << "a blank";
    }
}
