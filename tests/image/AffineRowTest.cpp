#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;
using Kernels::Line;

TEST(AffineRows, texturesTurnAlikeInRowsOfEveryWidth) {
    const auto stored = pixels(64 * 40);
    for (const auto& [wide, high] : {std::pair{61, 40}, {1, 40}, {2, 1}}) {
        const Kernels::Texture texture{stored.data(), 64 * 4, wide, high};
        for (const auto& [stepU, stepV] : {std::pair{0.9, 0.3}, {-0.7, 0.7}, {0.01, -1.2}, {40.0, 3.0}}) {
            const auto turned = [&](const Line& u, const Line& v, int from) {
                expectAlike(
                    std::vector<std::uint8_t>(longest * 4 + 8, 1), 4,
                    [&](int width, auto* out) { Kernels::affineRow(texture, u, v, from, from + width, out); },
                    "a turn");
            };
            turned(Line::through(-20.3, stepU), Line::through(5000, stepV), 1000 - longest);
            turned(Line::through(30 - 900 * stepU, stepU), Line::through(20 - 900 * stepV, stepV), 880);
        }
    }
}

TEST(AffineRows, areLinearBetweenTexels) {
    std::vector<std::uint8_t> stored(64 * 40 * 4);
    for (int at = 0; at < int(stored.size()); ++at) stored[at] = std::uint8_t(at / 4 % 64 * 2 + at / 256);
    const Kernels::Texture texture{stored.data(), 64 * 4, 61, 40};
    std::vector<std::uint8_t> out(100 * 4);
    Kernels::affineRow(texture, Line::through(3.3, 0.41), Line::through(2.7, 0.23), 0, 100, out.data());
    for (int at = 0; at < 100; ++at)
        EXPECT_NEAR(out[std::size_t(at) * 4], 2 * (3.3 + 0.41 * at) + 2.7 + 0.23 * at, 0.53) << at;
}
