#include "platform/text/CoverageMask.h"

#include <numbers>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

CoverageMask dotted(int width, int height, std::initializer_list<std::pair<int, int>> dots) {
    CoverageMask mask(width, height);
    for (const auto& [x, y] : dots) mask.row(y)[x] = 255;
    return mask;
}

}

TEST(CoverageMask, blurIsCloseToAGaussian) {
    for (const double sigma : {3.0, 6.5, 12.0}) {
        CoverageMask mask(161, 161);
        for (int y = 60; y < 101; ++y) std::fill_n(mask.row(y) + 60, 41, std::uint8_t(255));
        mask.blur(sigma);
        for (int x = 20; x < 141; ++x) {
            const auto side = [&](double edge) {
                return 0.5 * (1 + std::erf((edge - x) / (sigma * std::numbers::sqrt2)));
            };
            const double along = side(100.5) - side(59.5);
            const double across = std::erf(20.5 / (sigma * std::numbers::sqrt2));
            EXPECT_NEAR(mask.row(80)[x], 255 * along * across, 8) << sigma << " at " << x;
        }
    }
}

TEST(CoverageMask, blurWiderThanThePlaneStaysWithin) {
    CoverageMask mask = dotted(5, 3, {{2, 1}});
    mask.blur(400);
    EXPECT_EQ(mask.row(1)[2], 0);
}

TEST(CoverageMask, paintingMatchesPlainSourceOver) {
    CoverageMask mask(37, 1);
    for (int x = 0; x < 37; ++x) mask.row(0)[x] = x < 9 ? 0 : x < 20 ? 255 : std::uint8_t(x * 6);
    for (const Colour colour : {Colour{200, 100, 7, 255}, Colour{255, 255, 255, 128}, Colour{0, 0, 0, 179}}) {
        Bitmap bitmap(37, 1);
        for (int x = 0; x < 37; ++x) std::fill_n(bitmap.row(0) + std::ptrdiff_t(x) * 4, 4, std::uint8_t(80));
        mask.paint(bitmap, colour);
        for (int x = 0; x < 37; ++x) {
            const double cover = mask.row(0)[x] / 255.0 * colour.alpha / 255.0;
            EXPECT_NEAR(bitmap.row(0)[x * 4 + 2], colour.red * cover + 80 * (1 - cover), 1.6) << x;
            EXPECT_NEAR(bitmap.row(0)[x * 4 + 3], 255 * cover + 80 * (1 - cover), 1.6) << x;
        }
    }
}

TEST(CoverageMask, shapesOutsideThePlaneAreCutOff) {
    CoverageMask mask(4, 4);
    const std::vector<std::uint8_t> shape(9, 255);
    for (const auto& [x, y] : {std::pair{-2, -2}, {3, 3}, {-9, 0}, {0, 99}}) mask.add(shape, 3, 3, x, y);
    EXPECT_EQ(mask.row(0)[0], 255);
    EXPECT_EQ(mask.row(0)[1], 0);
    EXPECT_EQ(mask.row(3)[3], 255);
}
