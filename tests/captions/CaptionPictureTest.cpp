#include "core/render/captions/CaptionPicture.h"
#include "platform/text/Fonts.h"

#include <random>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;
using Request = CaptionPicture::Request;

namespace {

/// White letters of 84 pixels on nothing, and no more.
Request request(const std::string& text) {
    Request asked;
    asked.text = text;
    asked.style.outline = "";
    return asked;
}

Bitmap drawn(const Request& asked) {
    return CaptionPicture::bitmap(asked).value_or(Bitmap());
}

bool same(const Bitmap& a, const Bitmap& b) {
    bool equal = a.width() == b.width() && a.height() == b.height();
    for (int y = 0; equal && y < a.height(); ++y)
        equal = std::equal(a.row(y), a.row(y) + a.width() * 4, b.row(y));
    return equal;
}

/// The pixels of about this colour, and the box round them.
struct Found {
    int count = 0;
    int left = 100'000, top = 100'000, right = -1, bottom = -1;
};
Found find(const Bitmap& bitmap, Colour colour) {
    Found found;
    const auto near = [](int a, int b) { return std::abs(a - b) <= 3; };
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) {
            const std::uint8_t* pixel = bitmap.row(y) + x * 4;
            if (!near(pixel[0], colour.blue) || !near(pixel[1], colour.green) ||
                !near(pixel[2], colour.red) || !near(pixel[3], colour.alpha))
                continue;
            ++found.count;
            found.left = std::min(found.left, x), found.right = std::max(found.right, x);
            found.top = std::min(found.top, y), found.bottom = std::max(found.bottom, y);
        }
    return found;
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
}

TEST(CaptionPicture, longTextsComeOutInEvenLines) {
    for (const char* text : {"this is what we came here to see", "สวัสดีครับวันนี้เราจะมาเล่นเกมกันยาวๆเลย"}) {
        const Bitmap bitmap = drawn(request(text));
        EXPECT_LT(bitmap.width(), 929) << text;
        const Found ink = find(bitmap, white);
        EXPECT_GT(ink.right - ink.left, bitmap.width() - 2 * 38 - 84 * 2) << text;
    }
    EXPECT_EQ(drawn(request("one\ntwo")).height(), drawn(request("one two three four five six")).height());
}

TEST(CaptionPicture, coloursThatAreNoneFallBack) {
    auto asked = request("Hi");
    const Bitmap bare = drawn(asked);
    asked.style.outline = "no colour";
    asked.style.fill = "blue";
    asked.style.pill = "12345";
    EXPECT_TRUE(same(drawn(asked), bare));
    asked.style.fill = "#FF0000";
    EXPECT_GT(find(drawn(asked), red).count, 500);
    asked.style.fill = "FF000080";
    EXPECT_GT(find(drawn(asked), {128, 0, 0, 128}).count, 500);
}

TEST(CaptionPicture, bigCaptionsTakeTheirSizeAndColour) {
    auto asked = request("Hi");
    asked.big = true;
    asked.style.bigFill = "FF0000";
    const Found big = find(drawn(asked), red);
    asked.big = false;
    const Found ordinary = find(drawn(asked), white);
    EXPECT_NEAR(double(big.bottom - big.top) / (ordinary.bottom - ordinary.top), 1.7, 0.05);
    asked.style.bigFill = "";
    asked.big = true;
    EXPECT_GT(find(drawn(asked), white).count, 500);
}

TEST(CaptionPicture, stressedWordsHaveAColourOfTheirOwn) {
    auto asked = request("one two three");
    const Found all = find(drawn(asked), white);
    asked.stress = {1, 7, -1, 3};
    const Bitmap stressed = drawn(asked);
    const Found two = find(stressed, yellow);
    EXPECT_GT(two.count, 500);
    EXPECT_GT(two.left, all.left + 50);
    EXPECT_LT(two.right, all.right - 50);
    asked.style.bigFill = "FF0000";
    EXPECT_GT(find(drawn(asked), red).count, 500);
    asked.stress = {3};
    asked.style.bigFill = "";
    EXPECT_EQ(find(drawn(asked), yellow).count, 0);
}

TEST(CaptionPicture, hiddenWordsKeepTheirPlaceAndShowNothing) {
    auto asked = request("one two three");
    asked.style.outline = "000000";
    asked.style.shadow = true;
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
}

TEST(CaptionPicture, hiddenEmojiShowNothingAndFaintOnesAreFaint) {
    auto asked = request("a 😂");
    asked.reveal = 1;
    EXPECT_LT(find(drawn(asked), white).right, drawn(asked).width() / 2);
    asked = request("😂");
    asked.style.fill = "FFFFFF80";
    const Bitmap bitmap = drawn(asked);
    int most = 0;
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) most = std::max(most, int(bitmap.row(y)[x * 4 + 3]));
    EXPECT_EQ(most, 128);
}

TEST(CaptionPicture, theOutlineReachesHalfItsWidthRoundLettersAndEmoji) {
    for (const char* text : {"lll", "😂"}) {
        auto asked = request(text);
        asked.style.fill = "FF0000";
        const Bitmap bare = drawn(asked);
        asked.style.outline = "00FF00";
        asked.style.stroke = 30;
        const Bitmap outlined = drawn(asked);
        const auto visible = [](const Bitmap& bitmap) {
            Found found;
            for (int y = 0; y < bitmap.height(); ++y)
                for (int x = 0; x < bitmap.width(); ++x)
                    if (bitmap.row(y)[x * 4 + 3] > 127)
                        found.left = std::min(found.left, x), found.top = std::min(found.top, y);
            return found;
        };
        EXPECT_NEAR(visible(bare).left - visible(outlined).left, 12.6, 1.5) << text;
        EXPECT_NEAR(visible(bare).top - visible(outlined).top, 12.6, 1.5) << text;
    }
}

TEST(CaptionPicture, boxesStandBehindEachLineAndFlowTogether) {
    auto asked = request("wide upper line\nlower");
    asked.style.pill = "FF0000";
    asked.style.fill = "FF0000";
    const Bitmap bitmap = drawn(asked);
    const Found box = find(bitmap, red);
    EXPECT_NEAR(box.bottom - box.top + 1, 84 * (1.49 + 1.2 * 1.19), 2);
    int wide = 0;
    int narrow = 0;
    for (int y = box.top; y <= box.bottom; ++y) {
        int count = 0;
        for (int x = 0; x < bitmap.width(); ++x) count += bitmap.row(y)[x * 4 + 3] == 255;
        EXPECT_GT(count, 100) << "a gap at " << y;
        (y < bitmap.height() / 2 ? wide : narrow) = std::max(y < bitmap.height() / 2 ? wide : narrow, count);
    }
    EXPECT_GT(wide, narrow + 100);
}

TEST(CaptionPicture, theShadowFallsDownward) {
    auto asked = request("lll");
    asked.style.fill = "FF0000";
    asked.style.shadow = true;
    const Bitmap bitmap = drawn(asked);
    const Found text = find(bitmap, red);
    const int middle = (text.left + text.right) / 2;
    const auto darkness = [&](int y) { return int(bitmap.row(y)[middle * 4 + 3]); };
    EXPECT_GT(darkness(text.bottom + 8), darkness(text.top - 8) + 10);
    EXPECT_GT(darkness(text.bottom + 8), 20);
}

TEST(CaptionPicture, capitalsKeepTheOrderOfTheWords) {
    auto asked = request("straße ok");
    asked.style.upper = true;
    asked.stress = {1};
    const Bitmap upper = drawn(asked);
    asked.text = "STRASSE OK";
    asked.style.upper = false;
    EXPECT_TRUE(same(upper, drawn(asked)));
    EXPECT_GT(find(upper, yellow).count, 300);
}

TEST(CaptionPicture, aSmallerFrameShowsTheSameCaption) {
    const std::string text = "this is what we came here to see";
    const Bitmap large = drawn(request(text));
    for (const double scale : {0.25, 0.5, 2.0}) {
        auto asked = request(text);
        asked.scale = scale;
        asked.width = 928.8 * scale;
        const Bitmap bitmap = drawn(asked);
        EXPECT_NEAR(bitmap.width() / scale, large.width(), 4 / std::min(scale, 1.0)) << scale;
        EXPECT_NEAR(bitmap.height() / scale, large.height(), 4 / std::min(scale, 1.0)) << scale;
    }
}

TEST(CaptionPicture, absurdRequestsGiveNothingSoon) {
    const double huge = 1e300;
    const double none = std::nan("");
    std::vector<Request> table;
    for (const double size : {huge, -84.0, 0.0, 0.001, 1e5, none})
        table.push_back(request("Hi")), table.back().style.size = size;
    for (const double scale : {huge, none, 0.0, -1.0})
        table.push_back(request("Hi")), table.back().scale = scale;
    for (const double width : {huge, none, -5.0, 0.0})
        table.push_back(request("Hi")), table.back().width = width;
    table.push_back(request(""));
    table.push_back(request(std::string(100'000, 'a')));
    table.push_back(request(std::string(5900, 'a')));
    for (const auto& asked : table) EXPECT_FALSE(CaptionPicture::draw(asked)) << asked.text.substr(0, 9);
}

TEST(CaptionPicture, strangeTextsAndNumbersStillDraw) {
    std::vector<Request> table;
    for (const char* text :
         {"\n\n", "   ", "\xFF\xFE", "\u202Eabc\u202C", "a\u0301\u0301\u0301\u0301\u0301", "\u200B"})
        table.push_back(request(text));
    for (const double stroke : {-5.0, 1e300, std::nan("")})
        table.push_back(request("Hi")), table.back().style.stroke = stroke;
    for (const double weight : {-5.0, 1e300, std::nan("")})
        table.push_back(request("Hi")), table.back().style.weight = weight;
    for (auto& asked : table) {
        asked.style.outline = "000000";
        asked.style.pill = "FFFFFF";
        EXPECT_TRUE(CaptionPicture::draw(asked)) << asked.text;
    }
}

TEST(CaptionPicture, theImageIsThePictureFromItsTopLeft) {
    const auto asked = request("Hi");
    const Bitmap bitmap = drawn(asked);
    EXPECT_EQ(CaptionPicture::draw(asked)->extent(),
              (Rect{0, 0, double(bitmap.width()), double(bitmap.height())}));
}

TEST(CaptionPicture, anyThreadInAnyOrderDrawsTheSameBytes) {
    std::vector<Request> requests;
    for (int index = 0; index < 12; ++index) {
        auto asked = request(std::string(everyScript) + std::to_string(index));
        asked.style.outline = "000000";
        asked.style.shadow = index % 2 == 0;
        asked.scale = index % 3 ? 0.5 : 0.37;
        requests.push_back(asked);
    }
    std::vector<Bitmap> expected;
    for (const auto& asked : requests) expected.push_back(drawn(asked));
    std::atomic<int> wrong = 0;
    std::vector<std::jthread> threads;
    for (unsigned seed = 0; seed < 8; ++seed)
        threads.emplace_back([&, seed] {
            std::vector<std::size_t> order(requests.size());
            for (std::size_t at = 0; at < order.size(); ++at) order[at] = at;
            std::shuffle(order.begin(), order.end(), std::mt19937(seed));
            for (const std::size_t at : order) wrong += !same(drawn(requests[at]), expected[at]);
        });
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

TEST(CaptionPicture, lettersThatNoFontHasAreTold) {
    EXPECT_EQ(CaptionPicture::missing(request("ok \uE000")), std::vector<char32_t>{0xE000});
    EXPECT_TRUE(CaptionPicture::missing(request(everyScript)).empty());
}
