#include "platform/image/Jpeg.h"
#include "tests/TemporaryFolder.h"
#include "tests/stage/Staged.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Elements, keepLettersSharpThatTheyEnlarge) {
    const Staged stage(400, 200, {30, 60, 200});
    for (const auto& [sharp, scaled] :
         {std::pair{R"("size": 120)", R"("scale": 4)"},
          {R"("size": 120)", R"("keys": [{"t": 0, "scale": 4}, {"t": 2, "scale": 4}, {"t": 9, "scale": 1}])"},
          {R"("size": 30, "w": 0.9, "scale": 4)", R"("w": 3.6)"}}) {
        const auto large = stage.drawn(R"({"text": "Hi", )" + std::string(sharp) + "}");
        const auto enlarged = stage.drawn(R"({"text": "Hi", "size": 30, )" + std::string(scaled) + "}");
        int letters = 0, apart = 0;
        for (int y = 0; y < 200; ++y)
            for (int x = 0; x < 400; ++x) {
                letters += large.row(y)[x * 4] != 200;
                apart += std::abs(large.row(y)[x * 4] - enlarged.row(y)[x * 4]) > 40;
            }
        EXPECT_GT(letters, 5000);
        EXPECT_LT(apart, letters / 50) << "of " << letters << " with " << scaled;
    }
}

namespace {

/// How many pixels have that colour.
int countOf(const Bitmap& bitmap, const std::string& colour) {
    int count = 0;
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) count += at(bitmap, x, y) == colour;
    return count;
}

}

TEST(Elements, areChangedByTheirEffectsOneAfterTheOtherWhateverTheyShow) {
    Staged stage(80, 80, Colour::white);
    stage.source = stage.below;
    for (const std::string kind : {R"("shape": "circle")", R"("particles": "confetti")", R"("slot": "under")",
                                   R"("slot": "picture")", R"("slot": "emoji:😂")"}) {
        const auto drawn = [&](const char* effects) {
            return stage.drawn(R"({"shape": "rect", "fill": true, "color": "000000"}, {"w": 0.5, )" + kind +
                               R"(, "effects": [)" + effects + "]}");
        };
        const auto plain = drawn(""), tinted = drawn(R"("bright", "tint:FF0000")");
        int blue = 0, red = 0, other = 0;
        for (int at = 0; at < 80 * 80 * 4; at += 4) {
            blue += plain.row(at / 320)[at % 320];
            red += tinted.row(at / 320)[at % 320 + 2];
            other += tinted.row(at / 320)[at % 320] + tinted.row(at / 320)[at % 320 + 1];
        }
        EXPECT_TRUE(blue > 500 && red > 500 && other == 0) << kind;
    }
}

TEST(Elements, dropTheBoxOfAStyleWhereTheLayerHasItsOwnColour) {
    Staged stage(300, 150, {0, 0, 200});
    CaptionStyle card;
    card.fill = "111111";
    card.outline = "";
    card.shadow = false;
    card.pill = "FFFFFF";
    stage.plan.presets["card"] = card;
    const auto drawn = [&](const std::string& more) {
        return stage.drawn(R"({"text": "I", "style": "card", "size": 60)" + more + "}");
    };
    if (countOf(drawn(""), "111111") == 0) GTEST_SKIP() << "No font is installed.";
    EXPECT_GT(countOf(drawn(""), "FFFFFF"), 500) << "the style's own letters keep its box";
    EXPECT_EQ(countOf(drawn(R"(, "color": "FF0000")"), "FFFFFF"), 0);
    EXPECT_GT(countOf(drawn(R"(, "color": "FF0000")"), "FF0000"), 50);
    EXPECT_GT(countOf(drawn(R"(, "color": "FF0000", "box": "00FF00")"), "00FF00"), 500);
}

TEST(Elements, ringLettersButNoEmoji) {
    const Staged stage(400, 200, {0, 0, 200});
    const auto green = [&](const std::string& text) {
        return countOf(stage.drawn(R"({"text": ")" + text + R"(", "size": 90, "outline": "00FF00"})"),
                       "00FF00");
    };
    if (green("I") == 0) GTEST_SKIP() << "No font is installed.";
    EXPECT_EQ(green("😂"), 0);
    EXPECT_EQ(green("❤️ 🔥"), 0);
    EXPECT_EQ(green(R"(😂\n🔥)"), 0) << "nor where they stand in two lines";
    EXPECT_GT(green("I😂"), 50);
}

TEST(Elements, breakLettersByTheWidthOfTheFrame) {
    const auto widthIn = [](double width, double height) {
        const Staged stage(width, height);
        const auto frame = stage.drawn(R"({"text": "What a very long line of words this is", "size": 60})");
        int left = int(width), right = 0;
        for (int y = 0; y < frame.height(); ++y)
            for (int x = 0; x < frame.width(); ++x)
                if (at(frame, x, y) == "FFFFFF") left = std::min(left, x), right = std::max(right, x);
        return right - left;
    };
    if (widthIn(1080, 400) < 0) GTEST_SKIP() << "No font is installed.";
    EXPECT_LT(widthIn(1080, 400), 0.86 * 1080);
    EXPECT_GT(widthIn(1920, 400), 1000) << "one line";
}

TEST(Elements, takeTheSizeThatTheLayerNamesOneSideOf) {
    const TemporaryFolder folder;
    const auto file =
        folder.file("a.jpg", Jpeg::encode(Canvas::bitmap(Image::colour(Colour::white), {0, 0, 80, 40}), 1));
    const Staged stage(200, 100);
    for (const auto& [size, width, height] : {std::tuple{R"("w": 0.5)", 100, 50},
                                              {R"("h": 0.8)", 160, 80},
                                              {R"("w": 0.5, "h": 0.2)", 100, 20},
                                              {R"("w": 0.1, "h": 0.8)", 20, 80},
                                              {R"("fill": true)", 200, 100},
                                              {R"("scale": 0.5)", 40, 20}}) {
        const auto frame = stage.drawn(R"({"image": ")" + file.string() + R"(", )" + size + "}");
        EXPECT_EQ(countOf(frame, "FFFFFF"), width * height) << size;
        EXPECT_EQ(seen(frame, {{100 - width / 2, 50 - height / 2}, {99 + width / 2, 49 + height / 2}}), "##")
            << size;
    }
}
