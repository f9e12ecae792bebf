#include "tests/image/Rows.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;
using Kernels::ColourSums;

namespace {

int share(const ColourSums& sums, int channel, const std::uint8_t* pixel) {
    int sum = 0;
    for (int each = 0; each < 4; ++each) sum += sums.shares[channel][each] * pixel[each];
    return sum;
}

/// v + 4·v·(1 − v)·(lift + contrast·(2·v − 1)) of what is summed, for 255 levels.
double bent(const ColourSums& sums, int channel, const std::uint8_t* pixel) {
    const double v = std::clamp(share(sums, channel, pixel) / 4096.0 / 255, 0.0, 1.0);
    const double bend = sums.lift[channel] / 32768.0 + sums.contrast / 32768.0 * (2 * v - 1);
    return 255 * std::clamp(v + 4 * v * (1 - v) * bend, 0.0, 1.0);
}

constexpr ColourSums turned{
    {{300, 3500, 296, 0}, {-200, 4000, 900, -600}, {4096, -4096, 4096, 820}}, {}, 0, false};

}

TEST(ColourSums, areRoundedToLevelsWithinAlpha) {
    const auto row = pixels(longest);
    expectRows(
        row, 4, [](int width, auto* out) { Kernels::sumColours(turned, width, out); },
        [&](int at) {
            const auto* pixel = &row[std::size_t(at / 4) * 4];
            if (at % 4 == 3) return int(pixel[3]);
            return std::clamp((share(turned, at % 4, pixel) + 2048) >> 12, 0, int(pixel[3]));
        },
        "sums");
}

TEST(ColourSums, theMiddleIsBentAndTheEndsStay) {
    for (const auto& [lift, contrast] : {std::pair{8192, 0}, {-8192, 0}, {0, 8192}, {3000, -5000}}) {
        ColourSums sums{
            {{4096, 0, 0, 0}, {0, 4096, 0, 0}, {0, 0, 4096, 0}}, {}, std::int16_t(contrast), true};
        for (const int channel : {0, 1, 2}) sums.lift[channel] = std::int16_t(channel == 1 ? lift / 2 : lift);
        std::vector<std::uint8_t> before;
        for (int level = 0; level < 256; ++level)
            before.insert(before.end(),
                          {std::uint8_t(level), std::uint8_t(255 - level), std::uint8_t(level), 255});
        onEachTarget([&](const char* name) {
            auto after = before;
            Kernels::sumColours(sums, 256, after.data());
            for (std::size_t at = 0; at < after.size(); ++at) {
                const auto channel = static_cast<int>(at % 4);
                const double expected = channel == 3 ? 255 : bent(sums, channel, &before[at - at % 4]);
                ASSERT_NEAR(after[at], expected, 1.1) << name << " " << at << " " << lift << " " << contrast;
            }
            for (const std::size_t channel : {0, 2}) {
                EXPECT_EQ(after[channel], 0);
                EXPECT_EQ(after[255 * 4 + channel], 255);
            }
        });
    }
}

TEST(ColourSums, bentColoursOfSoftPixelsAreStraightAndKeepTheirAlpha) {
    ColourSums sums{{{4096, 0, 0, 0}, {0, 4096, 0, 0}, {0, 0, 4096, 0}}, {8192, 8192, 8192}, 0, true};
    std::vector<std::uint8_t> row;
    for (const int alpha : {255, 128, 64, 0})
        row.insert(row.end(), {std::uint8_t(alpha / 2), std::uint8_t(alpha / 4), 0, std::uint8_t(alpha)});
    Kernels::sumColours(sums, 4, row.data());
    EXPECT_NEAR(row[0], 191, 2);
    EXPECT_NEAR(row[4], 191 * 128 / 255, 2) << "as much as an opaque one";
    EXPECT_NEAR(row[8], 191 * 64 / 255, 2);
    EXPECT_EQ(row[12], 0);
    for (const auto& [at, alpha] : {std::pair{3, 255}, {7, 128}, {11, 64}, {15, 0}})
        EXPECT_EQ(row[std::size_t(at)], alpha);
}
