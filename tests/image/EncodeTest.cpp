#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(Encoding, encodesPlanesFromTheSamePixels) {
    const Image image = Image::bitmap(bitmapOf(64, 130, [](int x, int y) {
        return Colour{std::uint8_t(x * 4), std::uint8_t(y), std::uint8_t(255 - x * 2),
                      std::uint8_t(y < 100 ? 255 : 100)};
    }));
    Planes planes(64, 130);
    Canvas::draw(image, planes);
    const Bitmap bitmap = drawn(image, 64, 130);
    for (int y = 0; y < 130; y += 3) {
        for (int x = 2; x < 64; x += 2) {
            const auto luma = [&](int column, int row) {
                const Pixel pixel = at(bitmap, column, row);
                return 0.2126 * pixel.red + 0.7152 * pixel.green + 0.0722 * pixel.blue;
            };
            EXPECT_NEAR(planes.plane(0)[y * planes.stride(0) + x], 16 + luma(x, y) * 219 / 255, 0.6);
            double blue = 0;
            for (const int row : {y & ~1, y | 1}) {
                for (const int column : {x - 1, x, x, x + 1})
                    blue += (at(bitmap, column, row).blue - luma(column, row)) / 1.8556 / 8;
            }
            EXPECT_NEAR(planes.plane(1)[y / 2 * planes.stride(1) + x / 2], 128 + blue * 224 / 255, 0.6);
        }
    }
    const auto code = [](const Image& plain) {
        Planes one(2, 2);
        Canvas::draw(plain, one);
        return std::array{int(one.plane(0)[0]), int(one.plane(1)[0]), int(one.plane(2)[0])};
    };
    EXPECT_EQ(code(Image()), (std::array{16, 128, 128}));
    EXPECT_EQ(code(Image::colour(Colour::white)), (std::array{235, 128, 128}));
    EXPECT_EQ(code(Image::colour({255, 0, 0, 255})), (std::array{63, 102, 240}));
    EXPECT_EQ(code(Image::colour({0, 255, 0, 255})), (std::array{173, 42, 26}));
    EXPECT_EQ(code(Image::colour({0, 0, 255, 255})), (std::array{32, 240, 118}));
}
