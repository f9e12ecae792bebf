#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;

TEST(ColourRows, followTheirFormulas) {
    const Kernels::YCbCrMatrix matrix{9535, 14686, -1747, -4366, 17305, -580};
    // Sums of filters can stray a little past what samples can be.
    const auto y = random<std::int16_t>(longest, -200, 32767, 1);
    const auto u = random<std::int16_t>(longest, 0, 32767, 2);
    const auto v = random<std::int16_t>(longest, 0, 32767, 3);
    const std::vector<std::uint8_t> target(longest * 4 + 8, 77);
    const auto light = [&](int at) { // 32 to a level
        const int luma = part(y[at / 4], matrix.luma) + matrix.bias;
        const int across = u[at / 4] - 16384, down = v[at / 4] - 16384;
        const int channels[] = {luma + part(across, matrix.blueU),
                                luma + part(across, matrix.greenU) + part(down, matrix.greenV),
                                luma + part(down, matrix.redV), 255 << 5};
        return channels[at % 4];
    };
    expectRows(
        target, 4,
        [&](int width, auto* out) { Kernels::colourRow(y.data(), u.data(), v.data(), width, matrix, out); },
        [&](int at) { return byte(light(at) >> 5); }, "matrix");
    const auto alpha = [&](int at) { return byte((y[at / 4] + 64) >> 7); };
    expectRows(
        target, 4, [&](int width, auto* out) { Kernels::multiplyAlpha(y.data(), width, out); },
        [&](int at) { return at % 4 == 3 ? alpha(at) : share(77, alpha(at)); }, "alpha");
    const auto four = random<std::int16_t>(longest * 4, -200, 255 * 128);
    for (const bool opaque : {false, true})
        expectRows(
            target, 4, [&](int width, auto* out) { Kernels::packPixels(four.data(), width, opaque, out); },
            [&](int at) { return opaque && at % 4 == 3 ? 255 : byte((four[at] + 64) >> 7); }, "pack");
    // A cube that halves each channel, blue innermost; light beyond its sides is held there.
    std::vector<std::uint32_t> cube;
    for (int at = 0; at < 33 * 33 * 33; ++at)
        cube.push_back(16 * (std::uint32_t(at / (33 * 33)) << 20 | std::uint32_t(at / 33 % 33) << 10 |
                             std::uint32_t(at % 33)));
    expectRows(
        target, 4,
        [&](int width, auto* out) {
            Kernels::colourRow(y.data(), u.data(), v.data(), width, matrix, cube.data(), out);
        },
        [&](int at) { return at % 4 == 3 ? 255 : (std::clamp(light(at), 0, 8191) + 32) >> 6; }, "cube");
}
