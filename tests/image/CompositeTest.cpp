#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;

TEST(Composites, pixelsLieOnPixelsAsTheirTwin) {
    for (const int width : widths) {
        const auto above = pixels(width, 5);
        const auto target = pixels(width + 2, 6);
        expectTwins(
            target, [&](auto* out) { Kernels::over(above.data(), width, out); },
            [&](auto* out) { Twins::over(above.data(), width, out); }, "over");
        for (const std::uint32_t flat : {0xFF00FF80u, 0x80404020u, 0x00000000u})
            expectTwins(
                target, [&](auto* out) { Kernels::over(flat, width, out); },
                [&](auto* out) { Twins::over(flat, width, out); }, "flat over");
        for (const int opacity : {0, 1, 77, 254, 255})
            expectTwins(
                target, [&](auto* out) { Kernels::fade(opacity, width, out); },
                [&](auto* out) { Twins::fade(opacity, width, out); }, "fade");
        const auto others = pixels(width, 9);
        expectTwins(
            target, [&](auto* out) { Kernels::meanOfThree(above.data(), others.data(), width, out); },
            [&](auto* out) { Twins::meanOfThree(above.data(), others.data(), width, out); }, "meanOfThree");
    }
}

TEST(Composites, blocksTransposeAsTheirTwin) {
    for (const int width : widths) {
        const auto block = bytes(std::size_t(width) * 9 * 4);
        expectTwins(
            std::vector<std::uint8_t>(width * 40, 1),
            [&](auto* out) { Kernels::transpose(block.data(), width * 4, width, 9, out, 40); },
            [&](auto* out) { Twins::transpose(block.data(), width * 4, width, 9, out, 40); }, "transpose");
    }
}
