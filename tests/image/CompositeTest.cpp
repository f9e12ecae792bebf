#include "tests/image/Rows.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;

TEST(Composites, followTheirFormulas) {
    const auto above = pixels(longest, 5);
    const auto others = pixels(longest, 9);
    const auto target = pixels(longest + 2, 6);
    expectRows(
        target, 4, [&](int width, auto* out) { Kernels::over(above.data(), width, out); },
        [&](int at) { return byte(above[at] + share(target[at], 255 - above[at | 3])); }, "over");
    for (const std::uint32_t flat : {0xFF00FF80u, 0x80404020u, 0x00000000u})
        expectRows(
            target, 4, [&](int width, auto* out) { Kernels::over(flat, width, out); },
            [&](int at) { return int(flat >> at % 4 * 8 & 255) + share(target[at], 255 - int(flat >> 24)); },
            "flat over");
    for (const int opacity : {0, 1, 77, 254, 255})
        expectRows(
            target, 4, [&](int width, auto* out) { Kernels::fade(opacity, width, out); },
            [&](int at) { return share(target[at], opacity); }, "fade");
    expectRows(
        target, 4,
        [&](int width, auto* out) { Kernels::meanOfThree(above.data(), others.data(), width, out); },
        [&](int at) { return std::lround((above[at] + others[at] + target[at]) / 3.0); }, "mean");
    const auto block = bytes(longest * 9 * 4);
    expectRows(
        std::vector<std::uint8_t>(longest * 40, 1), 40,
        [&](int width, auto* out) { Kernels::transpose(block.data(), longest * 4, width, 9, out, 40); },
        [&](int at) { return at % 40 < 36 ? block[at % 40 / 4 * longest * 4 + at / 40 * 4 + at % 4] : 1; },
        "transpose");
}
