#include "core/render/stage/Glyph.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/draw/Canvas.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

int redInTheMiddle(const Image& image) {
    const Bitmap bitmap = Canvas::bitmap(image, image.extent());
    return bitmap.row(bitmap.height() / 2)[bitmap.width() / 2 * 4 + 2];
}

}

TEST(Glyph, hasAMarginAndMorePixelsThanAsked) {
    PlaybookMedia media;
    const auto letter = media.glyph("I", 200);
    if (!letter) GTEST_SKIP() << "No font is installed.";
    EXPECT_GT(letter->extent().height, 0.6 * 112 + 8);
    EXPECT_LT(letter->extent().height, 0.9 * 112 + 8);
    EXPECT_NEAR(media.glyph("I", 400)->extent().height - 8, 2 * (letter->extent().height - 8), 1.5);
    const Bitmap drawn = Canvas::bitmap(*letter, letter->extent());
    for (int x = 0; x < drawn.width(); ++x) EXPECT_EQ(drawn.row(2)[x * 4 + 3], 0);
    EXPECT_EQ(redInTheMiddle(*letter), 255);
    EXPECT_GT(redInTheMiddle(*media.glyph("🔥", 200)), 200);
    EXPECT_FALSE(media.glyph(" ", 200));
    for (const auto& [points, finer] : {std::pair{40, 18}, {200, 4}, {1000, 1}, {3000, 1}})
        EXPECT_EQ(Glyph::draw("I", points)->finer, finer) << points;
}
