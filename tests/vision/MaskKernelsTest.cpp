#include "platform/vision/MaskKernels.h"
#include "tests/image/Targets.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;
using MaskKernels::Curve;

namespace {

/// One pixel of a mask, by the rule.
std::uint8_t alpha(const float* factors, const std::uint8_t* pixel, Curve curve) {
    const float value = factors[0] * pixel[0] + factors[3] + factors[1] * pixel[1] + factors[2] * pixel[2];
    const float t = std::clamp((value - curve.none) / (curve.all - curve.none), 0.F, 1.F);
    return static_cast<std::uint8_t>(t * t * (3 - 2 * t) * 255 + 0.5F);
}

}

TEST(MaskKernels, aRowIsWhiteAtItsAlphaAndTheSameOnEveryProcessor) {
    constexpr Curve curve{0.2F, 0.7F};
    std::mt19937 random(3);
    for (const int count : {1, 3, 4, 7, 8, 17, 64, 65}) {
        std::vector<float> factors(4 * static_cast<std::size_t>(count));
        std::vector<std::uint8_t> pixels(factors.size());
        for (auto& factor : factors) factor = static_cast<float>(random() % 1000) / 1000 / 300;
        for (std::size_t at = 3; at < factors.size(); at += 4)
            factors[at] = static_cast<float>(random() % 1000) / 1000 - 0.5F;
        for (auto& byte : pixels) byte = static_cast<std::uint8_t>(random());
        std::vector<std::uint8_t> first;
        onEachTarget([&](const char* name) {
            std::vector<std::uint8_t> mask(pixels.size() + 8, 77);
            MaskKernels::maskRow(factors.data(), pixels.data(), count, curve, mask.data());
            if (first.empty()) first = mask;
            EXPECT_EQ(mask, first) << name;
        });
        for (std::size_t at = 0; at < pixels.size(); ++at)
            ASSERT_NEAR(first[at], alpha(&factors[at / 4 * 4], &pixels[at / 4 * 4], curve), 1) << at;
        EXPECT_EQ(std::vector(first.end() - 8, first.end()), std::vector<std::uint8_t>(8, 77))
            << "past the end";
    }
}
