#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;

TEST(ColourRows, coloursTurnAsTheirTwin) {
    const Kernels::YCbCrMatrix matrix{9535, 14686, -1747, -4366, 17305, -580};
    const auto cube =
        random<std::uint32_t>(Kernels::cubeSide * Kernels::cubeSide * Kernels::cubeSide, 0, (1 << 30) - 1);
    for (const int width : widths) {
        // Sums of filters can stray a little past what samples can be.
        const auto y = random<std::int16_t>(width, -200, 32767, 1);
        const auto u = random<std::int16_t>(width, 0, 32767, 2);
        const auto v = random<std::int16_t>(width, 0, 32767, 3);
        const std::vector<std::uint8_t> target(width * 4 + 8, 77);
        expectTwins(
            target, [&](auto* out) { Kernels::colourRow(y.data(), u.data(), v.data(), width, matrix, out); },
            [&](auto* out) { Twins::colourRow(y.data(), u.data(), v.data(), width, matrix, out); }, "matrix");
        expectTwins(
            target,
            [&](auto* out) {
                Kernels::colourRow(y.data(), u.data(), v.data(), width, matrix, cube.data(), out);
            },
            [&](auto* out) {
                Twins::colourRow(y.data(), u.data(), v.data(), width, matrix, cube.data(), out);
            },
            "cube");
        expectTwins(
            target, [&](auto* out) { Kernels::multiplyAlpha(y.data(), width, out); },
            [&](auto* out) { Twins::multiplyAlpha(y.data(), width, out); }, "alpha");
        const auto four = random<std::int16_t>(width * 4, -200, 255 * 128);
        for (const bool opaque : {false, true})
            expectTwins(
                target, [&](auto* out) { Kernels::packPixels(four.data(), width, opaque, out); },
                [&](auto* out) { Twins::packPixels(four.data(), width, opaque, out); }, "pack");
    }
}
