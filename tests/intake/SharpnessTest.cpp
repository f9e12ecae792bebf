#include "core/intake/samples/Sharpness.h"
#include "tests/intake/DrawnLuma.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int width = 640;
constexpr int height = 480;

/// A step from 0 to 1 that went through a blur.
double step(double past, double sigma) {
    return (1 + std::erf(past / (sigma * std::sqrt(2.0)))) / 2;
}

/// Light discs on dark ground, their edges blurred.
Luma discs(double sigma) {
    return drawn::luma(width, height, [&](int x, int y) {
        const double one = 90 - std::hypot(x - 150, y - 170);
        const double other = 75 - std::hypot(x - 470, y - 300);
        return 60 + 130 * (step(one, sigma) + step(other, sigma));
    });
}

/// The same discs, smeared across.
Luma smeared(double sigma) {
    return drawn::luma(width, height, [&](int x, int y) {
        double sum = 0;
        for (int away = -8; away <= 8; ++away) sum += step(90 - std::hypot(x + away - 150, y - 170), sigma);
        return 60 + 130 * sum / 17;
    });
}

}

TEST(Sharpness, isTheBlurThatEdgesWentThrough) {
    for (const double sigma : {0.5, 0.9, 1.5, 3.0, 5.0}) {
        EXPECT_GT(Sharpness::edgeRadius(discs(sigma)), sigma);
        EXPECT_LT(Sharpness::edgeRadius(discs(sigma)), 1.2 * sigma + 0.35);
    }
    EXPECT_GT(Sharpness::of(discs(0.1)), 140);
    EXPECT_LT(Sharpness::of(discs(5)), 10);
    EXPECT_GT(Sharpness::edgeRadius(smeared(0.5)), 2);
}

TEST(Sharpness, isNotContrastNorGrain) {
    const Luma soft = discs(1.5);
    const double radius = Sharpness::edgeRadius(soft);
    const auto expectSame = [&](const Luma& luma) {
        EXPECT_NEAR(Sharpness::edgeRadius(luma), radius, 0.05 * radius);
    };
    expectSame(drawn::changed(soft, [](double level) { return 16 + (level - 16) * 0.2; }));
    expectSame(drawn::changed(soft, [](double level) { return 110 + level * 0.3; }));
    std::mt19937 random(3);
    const auto grainy = drawn::changed(soft, [&](double level) { return level + double(random() % 9) - 4; });
    expectSame(grainy);
    expectSame(drawn::luma(width, 2 * height,
                           [&](int x, int y) { return y < height ? int(grainy.row(y)[x]) : 60; }));
}
