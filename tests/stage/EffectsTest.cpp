#include "core/playbooks/Effect.h"
#include "core/render/stage/Effects.h"
#include "platform/image/draw/Canvas.h"
#include "tests/SameBitmaps.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int width = 120;
constexpr int height = 90;

/// Fine detail in many colours, opaque or with holes.
Image picture(bool holes = false) {
    Bitmap bitmap(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool hole = holes && (x / 30 + y / 30) % 2 == 0;
            const int channels[] = {x * 2, 40 + y * 2, (x * y) % 251, 255};
            for (int at = 0; at < 4; ++at) bitmap.row(y)[x * 4 + at] = std::uint8_t(hole ? 0 : channels[at]);
        }
    }
    return Image::bitmap(bitmap);
}

Bitmap drawn(const Image& image) {
    return Canvas::bitmap(image, {0, 0, width, height});
}

}

TEST(Effects, everyWordChangesThePictureWithinItsExtent) {
    for (const bool holes : {false, true}) {
        const Image image = picture(holes);
        for (const auto word : rawTexts(Effect{})) {
            const std::string effect = word == "tint:RRGGBB" ? "tint:FF8800" : std::string(word);
            const Image changed = Stage::Effects::apply(effect, image, 1.5);
            EXPECT_EQ(changed.extent(), image.extent()) << effect;
            EXPECT_FALSE(same(drawn(changed), drawn(image))) << effect;
        }
    }
}

TEST(Effects, whatIsNoEffectChangesNothing) {
    const Image image = picture();
    for (const char* effect : {"", "Mono", "mono ", "sparkle", "tint", "tint:", "tint:12345", "tint:GGGGGG",
                               "tint:RRGGBB", "tint:-12345"})
        EXPECT_TRUE(Stage::Effects::apply(effect, image, 1).isSameAs(image)) << effect;
    EXPECT_FALSE(Stage::Effects::apply("tint:#ff8800", image, 1).isSameAs(image));
    for (const auto word : rawTexts(Effect{}))
        EXPECT_TRUE(Stage::Effects::apply(word, Image(), 1).empty()) << word;
}

TEST(Effects, onlyTheTapeMovesWithTime) {
    const Image image = picture();
    for (const auto word : rawTexts(Effect{}))
        EXPECT_EQ(same(drawn(Stage::Effects::apply(word, image, 0)),
                       drawn(Stage::Effects::apply(word, image, 0.37))),
                  word != "vhs")
            << word;
}

TEST(Effects, theTapeIsTheSameWheneverItIsDrawn) {
    const Image image = picture();
    const auto at = [&](double held) { return drawn(Stage::Effects::apply("vhs", image, held)); };
    EXPECT_FALSE(same(at(0), at(0.04))) << "a thirtieth later the noise is another";
    EXPECT_TRUE(same(at(0.05), at(0.05 + 97 * 20 / 30.0 * 3))) << "both noise and lines come round";
    for (const double held : {std::nan(""), 1e308, -1e308}) EXPECT_TRUE(same(at(held), at(0))) << held;
}
