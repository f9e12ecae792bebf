#include "platform/base/Problem.h"
#include "platform/image/Jpeg.h"
#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

Bitmap sample() {
    return bitmapOf(70, 50, [](int x, int y) {
        return Colour{std::uint8_t(x * 3), std::uint8_t(y * 5), std::uint8_t(255 - x),
                      std::uint8_t(y < 40 ? 255 : 0)};
    });
}

}

TEST(Jpegs, keepThePictureOverBlack) {
    const auto back = Jpeg::decode(Jpeg::encode(sample(), 0.95));
    ASSERT_TRUE(back);
    const Bitmap flat = drawn(Image::bitmap(sample()).over(Image::colour(Colour::black)), 70, 50);
    for (const auto& [x, y] : {std::pair{3, 3}, {60, 20}, {30, 35}, {30, 48}})
        EXPECT_LE(difference(at(*back, x, y), at(flat, x, y)), 8) << x << ", " << y;
    EXPECT_LT(Jpeg::encode(sample(), 0.2).size(), Jpeg::encode(sample(), 0.9).size());
    EXPECT_NO_THROW(Jpeg::encode(sample(), 7));
    EXPECT_THROW(Jpeg::encode(Bitmap(), 0.9), Problem);
    for (const auto& [width, height] : {std::pair{70, 50}, {50, 70}}) {
        const auto bytes = Jpeg::encode(Bitmap(width, height), 0.9);
        EXPECT_TRUE(Jpeg::decode(bytes, 70)) << width;
        EXPECT_FALSE(Jpeg::decode(bytes, 69)) << width;
    }
}

TEST(Jpegs, endQuietlyOnWhatIsNone) {
    const std::string whole = Jpeg::encode(sample(), 0.9);
    EXPECT_FALSE(Jpeg::decode(""));
    EXPECT_FALSE(Jpeg::decode("not a picture at all"));
    EXPECT_FALSE(Jpeg::decode(whole.substr(0, 40)));
    for (std::size_t length = 0; length < whole.size(); length += 7) Jpeg::decode(whole.substr(0, length));
    // A header that claims more than can be held.
    std::string huge = whole;
    const auto size = huge.find("\xFF\xC0");
    ASSERT_NE(size, std::string::npos);
    huge.replace(size + 5, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_FALSE(Jpeg::decode(huge));
    for (std::size_t at = 0; at < whole.size(); at += 3) {
        std::string broken = whole;
        broken[at] = char(broken[at] ^ 0x5A);
        Jpeg::decode(broken);
    }
}
