#include "core/render/captions/CaptionPicture.h"
#include "tests/SameBitmaps.h"

#include <gtest/gtest.h>

using namespace murbo;
using Request = CaptionPicture::Request;

namespace {

/// White letters of 84 pixels on nothing, but for what the style says.
Request request(const std::string& text, const CaptionStyle& style = {}) {
    Request asked;
    asked.text = text;
    asked.style = style;
    if (!style.outline) asked.style.outline = "";
    return asked;
}

Bitmap drawn(const Request& asked) {
    return CaptionPicture::bitmap(asked).value_or(Bitmap());
}

/// The pixels of which something holds, and the box round them.
struct Found {
    int count = 0;
    int left = 100'000, top = 100'000, right = -1, bottom = -1;
};
template <class Holds>
Found findWhere(const Bitmap& bitmap, Holds holds) {
    Found found;
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) {
            if (!holds(bitmap.row(y) + x * 4)) continue;
            ++found.count;
            found.left = std::min(found.left, x), found.right = std::max(found.right, x);
            found.top = std::min(found.top, y), found.bottom = std::max(found.bottom, y);
        }
    return found;
}
Found find(const Bitmap& bitmap, Colour colour) {
    const auto near = [](int a, int b) { return std::abs(a - b) <= 3; };
    return findWhere(bitmap, [&](const std::uint8_t* pixel) {
        return near(pixel[0], colour.blue) && near(pixel[1], colour.green) && near(pixel[2], colour.red) &&
               near(pixel[3], colour.alpha);
    });
}

constexpr Colour white{255, 255, 255};
constexpr Colour red{255, 0, 0};
constexpr Colour yellow{0xFF, 0xD6, 0x0A};

const char* const everyScript = "Hello WORLD สวัสดีครับ 日本語 한국어 مرحبا 😂🔥";

}

TEST(CaptionPicture, aTextOfOneLineKeepsTheWidthGiven) {
    const Bitmap bitmap = drawn(request("Hi"));
    EXPECT_EQ(bitmap.width(), 2 * 38 + 929); // 0.45 em of room on each side
    const Found text = find(bitmap, white);
    EXPECT_NEAR(text.left, bitmap.width() - 1 - text.right, 4);
    EXPECT_NEAR((text.top + text.bottom) / 2.0, bitmap.height() / 2.0, 4);
    EXPECT_EQ(CaptionPicture::draw(request("Hi"))->extent(),
              (Rect{0, 0, double(bitmap.width()), double(bitmap.height())}));
}

TEST(CaptionPicture, longTextsComeOutInEvenLines) {
    for (const char* text : {"this is what we came here to see", "สวัสดีครับวันนี้เราจะมาเล่นเกมกันยาวๆเลย"}) {
        const Bitmap bitmap = drawn(request(text));
        EXPECT_LT(bitmap.width(), 929) << text;
        for (const double scale : {0.25, 0.5, 2.0}) { // a smaller frame shows the same caption
            auto asked = request(text);
            asked.scale = scale;
            asked.width = 928.8 * scale;
            const Bitmap scaled = drawn(asked);
            EXPECT_NEAR(scaled.width() / scale, bitmap.width(), 4 / std::min(scale, 1.0)) << scale;
            EXPECT_NEAR(scaled.height() / scale, bitmap.height(), 4 / std::min(scale, 1.0)) << scale;
        }
    }
    EXPECT_EQ(drawn(request("one\ntwo")).height(), drawn(request("one two three four five six")).height());
}

TEST(CaptionPicture, coloursThatAreNoneFallBack) {
    EXPECT_TRUE(same(drawn(request("Hi", {.fill = "blue", .outline = "no colour", .pill = "12345"})),
                     drawn(request("Hi"))));
    EXPECT_GT(find(drawn(request("Hi", {.fill = "#FF0000"})), red).count, 500);
    EXPECT_GT(find(drawn(request("Hi", {.fill = "FF000080"})), {128, 0, 0, 128}).count, 500);
}

TEST(CaptionPicture, itsOwnFontComesBeforeThoseOfTheVideo) {
    const auto set = [](const std::string& own, const std::string& fonts) {
        Request asked = request("Rg", {.font = own});
        asked.fonts = fonts;
        return drawn(asked);
    };
    EXPECT_TRUE(same(set("Noto Serif", "Quicksand"), set("", "Noto Serif")));
    EXPECT_FALSE(same(set("", "Quicksand"), set("", "Noto Serif")));
}

TEST(CaptionPicture, bigCaptionsTakeTheirSizeAndColour) {
    auto asked = request("Hi", {.bigFill = "FF0000"});
    const Found ordinary = find(drawn(asked), white);
    asked.big = true;
    const Found big = find(drawn(asked), red);
    EXPECT_NEAR(double(big.bottom - big.top) / (ordinary.bottom - ordinary.top), 1.7, 0.05);
    asked.style.bigFill = "";
    asked.style.fill = "FF0000";
    EXPECT_GT(find(drawn(asked), red).count, 500);
}

TEST(CaptionPicture, stressedWordsHaveAColourOfTheirOwn) {
    auto asked = request("one two three");
    const Found all = find(drawn(asked), white);
    asked.stress = {1, 7, -1, 3, INT64_MIN};
    const Found two = find(drawn(asked), yellow);
    EXPECT_GT(two.count, 500);
    EXPECT_GT(two.left, all.left + 50);
    EXPECT_LT(two.right, all.right - 50);
    asked.stress = {0};
    const Found first = find(drawn(asked), yellow);
    EXPECT_GT(first.count, 300);
    EXPECT_NEAR(first.left, all.left, 2);
    asked.style.bigFill = "FF0000";
    EXPECT_GT(find(drawn(asked), red).count, 500);
    asked.stress = {3};
    asked.style.bigFill = "";
    EXPECT_EQ(find(drawn(asked), yellow).count, 0);

    // Capitals keep the order of the words.
    asked = request("straße ok", {.upper = true});
    asked.stress = {1};
    const Bitmap upper = drawn(asked);
    asked.text = "STRASSE OK";
    asked.style.upper = false;
    EXPECT_TRUE(same(upper, drawn(asked)));
    EXPECT_GT(find(upper, yellow).count, 300);
}

TEST(CaptionPicture, hiddenWordsKeepTheirPlaceAndShowNothing) {
    auto asked = request("one two three", {.outline = "000000", .shadow = true});
    const Bitmap all = drawn(asked);
    asked.reveal = 3;
    EXPECT_TRUE(same(drawn(asked), all));
    asked.reveal = 1;
    const Bitmap first = drawn(asked);
    EXPECT_EQ(first.width(), all.width());
    EXPECT_EQ(find(first, white).left, find(all, white).left);
    EXPECT_LT(find(first, white).right, first.width() / 2);
    for (const int none : {0, -4}) {
        asked.reveal = none;
        const Bitmap hidden = drawn(asked);
        EXPECT_EQ(find(hidden, Colour::clear).count, hidden.width() * hidden.height());
    }
    asked = request("a 😂");
    asked.reveal = 1;
    EXPECT_LT(find(drawn(asked), white).right, drawn(asked).width() / 2);
}

TEST(CaptionPicture, faintEmojiAreFaint) {
    const auto max = [](int min) {
        return findWhere(drawn(request("😂", {.fill = "FFFFFF80"})),
                         [=](const std::uint8_t* pixel) { return pixel[3] >= min; })
            .count;
    };
    EXPECT_GT(max(128), 0);
    EXPECT_EQ(max(129), 0);
}

TEST(CaptionPicture, theOutlineReachesHalfItsWidthRoundLettersAndEmoji) {
    const auto visible = [](const Request& asked) {
        return findWhere(drawn(asked), [](const std::uint8_t* pixel) { return pixel[3] > 127; });
    };
    for (const char* text : {"lll", "😂"}) {
        const Found bare = visible(request(text, {.fill = "FF0000"}));
        const Found outlined = visible(request(text, {.fill = "FF0000", .outline = "00FF00", .stroke = 30}));
        EXPECT_NEAR(bare.left - outlined.left, 12.6, 1.5) << text;
        EXPECT_NEAR(bare.top - outlined.top, 12.6, 1.5) << text;
    }
}

TEST(CaptionPicture, boxesStandBehindEachLineAndFlowTogether) {
    const Bitmap bitmap = drawn(request("wide upper line\nlower", {.fill = "FF0000", .pill = "FF0000"}));
    const Found box = find(bitmap, red);
    EXPECT_NEAR(box.bottom - box.top + 1, 84 * (1.49 + 1.2 * 1.19), 2);
    // A box reaches further above its letters than below; the letters stand in the middle.
    EXPECT_NEAR((box.top + box.bottom + 1) / 2.0, bitmap.height() / 2.0 - 0.03 * 84, 1);
    const auto covered = [&](int y) {
        int count = 0;
        for (int x = 0; x < bitmap.width(); ++x) count += bitmap.row(y)[x * 4 + 3] == 255;
        return count;
    };
    for (int y = box.top; y <= box.bottom; ++y) EXPECT_GT(covered(y), 100) << "a gap at " << y;
    EXPECT_GT(covered(box.top + 60), covered(box.bottom - 60) + 100);
}

TEST(CaptionPicture, theShadowFallsDownward) {
    const Bitmap bitmap = drawn(request("III", {.fill = "FF0000", .shadow = true}));
    const Found text = find(bitmap, red);
    const int middle = (text.left + text.right) / 2;
    const auto darkness = [&](int y) { return int(bitmap.row(y)[middle * 4 + 3]); };
    EXPECT_GT(darkness(text.bottom + 8), 20);
    for (const int away : {8, 11, 14, 20}) // five hundredths of 84 lower, to the pixel
        EXPECT_NEAR(darkness(text.bottom + 4 + away), darkness(text.top + 4 - away), 3) << away;

    // It falls on the outline, which casts none itself.
    const Bitmap outlined =
        drawn(request("III", {.fill = "FF0000", .outline = "FFFFFF", .stroke = 30, .shadow = true}));
    const std::uint8_t* under = outlined.row(text.bottom + 8) + middle * 4;
    EXPECT_EQ(under[3], 255);
    EXPECT_NEAR(under[0], 255 - darkness(text.bottom + 8), 3);
}

TEST(CaptionPicture, absurdRequestsGiveNothingSoonAndStrangeOnesStillDraw) {
    const double huge = 1e300;
    const double none = std::nan("");
    std::vector<Request> absurd{request(""), request(std::string(100'000, 'a')),
                                request(std::string(5900, 'a'))};
    for (const double size : {huge, -84.0, 0.0, 0.001, 1e5, none})
        absurd.push_back(request("Hi", {.size = size}));
    for (const double scale : {huge, none, 0.0, -1.0})
        absurd.push_back(request("Hi")), absurd.back().scale = scale;
    for (const double width : {huge, none, -5.0, 0.0})
        absurd.push_back(request("Hi")), absurd.back().width = width;
    for (const auto& asked : absurd) EXPECT_FALSE(CaptionPicture::draw(asked)) << asked.text.substr(0, 9);

    CaptionStyle style{.outline = "000000", .pill = "FFFFFF"};
    for (const char* text :
         {"\n\n", "   ", "\xFF\xFE", "\u202Eabc\u202C", "a\u0301\u0301\u0301\u0301\u0301", "\u200B"})
        EXPECT_TRUE(CaptionPicture::draw(request(text, style))) << text;
    for (const double number : {-5.0, huge, none}) {
        style.stroke = number;
        EXPECT_TRUE(CaptionPicture::draw(request("Hi", style))) << number;
        style.stroke.reset();
        style.weight = number;
        EXPECT_TRUE(CaptionPicture::draw(request("Hi", style))) << number;
        style.weight.reset();
    }
}

TEST(CaptionPicture, lettersThatNoFontHasAreTold) {
    EXPECT_EQ(CaptionPicture::missing(request("ok \uE000")), std::vector<char32_t>{0xE000});
    EXPECT_TRUE(CaptionPicture::missing(request(everyScript)).empty());
}
