#include "app/desktop/drawn/Painted.h"
#include "core/intake/samples/Loudness.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Painted, aBitmapsPixelsAreShared) {
    Bitmap bitmap(3, 2);
    bitmap.row(1)[4] = 200; // blue of the second pixel
    bitmap.row(1)[7] = 255;
    const auto image = Painted::image(bitmap);
    EXPECT_EQ(image.size(), QSize(3, 2));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(0, 0, 200));
    EXPECT_EQ(image.constBits(), bitmap.row(0));
}

TEST(Painted, aWaveIsAsHighAsItIsLoud) {
    Loudness loudness;
    loudness.levels = {255, 255, 255, 255, 255, 0, 0, 0, 0, 0};
    const auto picture = Painted::wave({{0, 0, 100, 20}, {}, 0, 1, Qt::white}, loudness, 2);
    EXPECT_EQ(picture.size(), QSize(200, 40));
    const auto filled = [&](int x) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) count += qAlpha(picture.pixel(x, y)) > 0;
        return count;
    };
    EXPECT_EQ(filled(20), 40);
    EXPECT_EQ(filled(180), 1) << "silence is a line";
}
