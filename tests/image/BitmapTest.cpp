#include "platform/base/Problem.h"
#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(Bitmaps, refuseWhatCannotBeHeld) {
    EXPECT_THROW(Bitmap(0, 5), Problem);
    EXPECT_THROW(Bitmap(40000, 1), Problem);
    EXPECT_THROW(Canvas::bitmap(Image(), {0, 0, 1e9, 1}), Problem);
    EXPECT_EQ(Bitmap(17, 3).stride() % 64, 0);
    EXPECT_TRUE(Image::bitmap(Bitmap()).empty());
}

TEST(Bitmaps, knowHowDeepTheyAreClear) {
    const auto dotAt = [](int at, int y) {
        return bitmapOf(9, 9, [=](int x, int row) {
            return Colour{255, 255, 255, std::uint8_t(x == at && row == y ? 1 : 0)};
        });
    };
    EXPECT_EQ(dotAt(4, 4).air(), 4);
    EXPECT_EQ(dotAt(7, 4).air(), 1);
    EXPECT_EQ(dotAt(4, 8).air(), 0);
}
