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
