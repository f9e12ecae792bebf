#include "platform/image/kernels/Kernels.h"
#include "tests/image/Targets.h"
#include "tests/image/Twins.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;
using Kernels::Columns;
using Kernels::Line;
using Kernels::Taps;

namespace {

/// Widths round which each size of vector has its tails.
const int widths[] = {1, 2, 3, 5, 7, 8, 9, 15, 16, 17, 31, 33, 63, 64, 65, 127, 130, 333};

template <typename T>
std::vector<T> random(std::size_t count, int low, int high, unsigned seed = 1) {
    std::mt19937 generator(seed);
    std::vector<T> values(count);
    for (auto& value : values) value = T(low + int(generator() % unsigned(high - low + 1)));
    return values;
}

std::vector<std::uint8_t> bytes(std::size_t count, unsigned seed = 1) {
    return random<std::uint8_t>(count, 0, 255, seed);
}

/// Premultiplied pixels with many clear and many opaque ones.
std::vector<std::uint8_t> pixels(int count, unsigned seed = 1) {
    auto result = bytes(std::size_t(count) * 4, seed);
    for (int at = 0; at < count; ++at) {
        auto* pixel = &result[std::size_t(at) * 4];
        if (at / 16 % 3 == 0) pixel[3] = 255;
        if (at / 16 % 3 == 1) pixel[3] = 0;
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = std::uint8_t(pixel[channel] * pixel[3] / 255);
    }
    return result;
}

Columns columns(double step, int outputs, int samples, int values, double offset = -1.3) {
    return Columns(Line::through(offset, step), 0, outputs, 0, samples, values);
}

}

TEST(Kernels, rowsBlendAsTheirTwin) {
    auto stored = bytes(6 * 700);
    const std::int16_t weights[] = {9000, 3000, 12000, 768, 5000, 3000};
    for (const Kernels::Depth depth : {Kernels::Depth{1, 7, 0}, {2, 0, 1}, {2, 5, 0}}) {
        // Words of ten bits have nothing above them.
        for (std::size_t at = 1 + 1; depth.left == 5 && at < stored.size(); at += 2) stored[at] &= 3;
        for (const int width : widths) {
            for (int taps = 1; taps <= 6; ++taps) {
                const std::uint8_t* rows[6];
                for (int row = 0; row < 6; ++row) rows[row] = &stored[std::size_t(row) * 700 + 1];
                const auto blend = [&](auto function) {
                    return [=, &rows, &weights](std::int16_t* out) {
                        function(rows, weights, taps, depth, width, out);
                    };
                };
                expectTwins(std::vector<std::int16_t>(width + 8, 99), blend(Kernels::blendRows),
                            blend(Twins::blendRows),
                            std::to_string(taps) + " rows of " + std::to_string(width));
            }
        }
    }
}

TEST(Kernels, rowsResampleAsTheirTwin) {
    for (const double step : {0.1, 0.49, 0.85, 1.0, 1.126, 1.74, 1.76, 3.3, 9.7, -0.6, -1.2, -2.5}) {
        for (const int values : {1, 4}) {
            for (const int outputs : {1, 3, 8, 61, 203}) {
                const auto across = columns(step, outputs, 200, values, step < 0 ? 201.4 : -1.3);
                const auto& taps = across.taps;
                const auto in =
                    random<std::int16_t>((taps.high - taps.low) * values + Kernels::slack, 0, 32767);
                const std::vector<std::int16_t> target((outputs + 8) * values, 0);
                const auto run = [&](auto function) {
                    return [&, function](std::int16_t* out) {
                        function(across, 0, outputs, in.data(), out);
                        std::fill(out + outputs * values, out + target.size(), std::int16_t(0));
                    };
                };
                expectTwins(target, run(Kernels::resampleRow), run(Twins::resampleRow),
                            "step " + std::to_string(step) + ", " + std::to_string(outputs) + " of " +
                                std::to_string(values));
            }
        }
    }
}

TEST(Kernels, aFlatRowStaysWhatItIs) {
    for (const double step : {0.3, 1.0, 1.37, 2.9, 20.0}) {
        const auto across = columns(step, 100, 150, 1);
        const std::vector<std::int16_t> in(150 + Kernels::slack, 30080);
        std::vector<std::int16_t> out(108);
        Kernels::resampleRow(across, 0, 100, in.data(), out.data());
        for (int at = 0; at < 100; ++at)
            EXPECT_NEAR(out[at], 30080, across.taps.sum == Taps::Sum::products ? 1 : 0);
    }
}

TEST(Kernels, coloursTurnAsTheirTwin) {
    const Kernels::Matrix matrix{9535, 14686, -1747, -4366, 17305, -580};
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

TEST(Kernels, pixelsLieOnPixelsAsTheirTwin) {
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

TEST(Kernels, pixelsMixAsTheirTwin) {
    for (const int width : widths) {
        // Also such as rounding leaves, a little brighter than their alpha.
        auto above = pixels(width, 7);
        auto below = pixels(width + 2, 8);
        for (auto* row : {&above, &below}) {
            for (std::size_t at = 0; at < row->size(); at += 4 * 3)
                if ((*row)[at + 3] < 255) (*row)[at] = std::uint8_t((*row)[at + 3] + 1);
        }
        const auto expect = [&](auto kernel, auto twin, const char* what) {
            expectTwins(
                below, [&](auto* out) { kernel(above.data(), width, out); },
                [&](auto* out) { twin(above.data(), width, out); }, what);
        };
        expect(Kernels::multiply, Twins::multiply, "multiply");
        expect(Kernels::screen, Twins::screen, "screen");
        expect(Kernels::overlay, Twins::overlay, "overlay");
        expect(Kernels::softLight, Twins::softLight, "soft light");
        expect(Kernels::add, Twins::add, "add");
        expect(Kernels::mask, Twins::mask, "mask");
    }
}

TEST(Kernels, texturesTurnAsTheirTwin) {
    const auto stored = pixels(64 * 40);
    for (const auto& [wide, high] : {std::pair{61, 40}, {1, 40}, {2, 1}}) {
        const Kernels::Texture texture{stored.data(), 64 * 4, wide, high};
        for (const auto& [stepU, stepV] : {std::pair{0.9, 0.3}, {-0.7, 0.7}, {0.01, -1.2}, {40.0, 3.0}}) {
            for (const int width : widths) {
                const auto expectTurned = [&, wide = wide](const Line& u, const Line& v, int from) {
                    expectTwins(
                        std::vector<std::uint8_t>(width * 4 + 8, 1),
                        [&](auto* out) { Kernels::turnRow(texture, u, v, from, from + width, out); },
                        [&](auto* out) { Twins::turnRow(texture, u, v, from, from + width, out); },
                        "turn of " + std::to_string(wide));
                };
                expectTurned(Line::through(-20.3, stepU), Line::through(5000, stepV), 1000 - width);
                expectTurned(Line::through(30 - 900 * stepU, stepU), Line::through(20 - 900 * stepV, stepV),
                             880);
            }
        }
    }
}

TEST(Kernels, rowsSmearAndTransposeAsTheirTwin) {
    for (const int width : widths) {
        const auto row = pixels(width);
        for (const int reach : {32, 33, 96, 500, 4096})
            expectTwins(
                std::vector<std::uint8_t>(width * 4 + 4, 1),
                [&](auto* out) { Kernels::smearRow(row.data(), width, reach, out); },
                [&](auto* out) { Twins::smearRow(row.data(), width, reach, out); }, "smear");
        const auto block = bytes(std::size_t(width) * 9 * 4);
        expectTwins(
            std::vector<std::uint8_t>(width * 40, 1),
            [&](auto* out) { Kernels::transpose(block.data(), width * 4, width, 9, out, 40); },
            [&](auto* out) { Twins::transpose(block.data(), width * 4, width, 9, out, 40); }, "transpose");
    }
}

TEST(Kernels, pixelsEncodeAsTheirTwin) {
    for (const int width : {2, 4, 6, 16, 18, 34, 66, 130, 334}) {
        const auto upper = bytes(std::size_t(width) * 4, 8);
        const auto lower = bytes(std::size_t(width) * 4, 9);
        expectTwins(
            std::vector<std::uint8_t>(width + 4, 1),
            [&](auto* out) { Kernels::lumaRow(upper.data(), width, out); },
            [&](auto* out) { Twins::lumaRow(upper.data(), width, out); }, "luma");
        const auto half = width / 2;
        expectTwins(
            std::vector<std::uint8_t>(width + 4, 1),
            [&](auto* out) { Kernels::chromaRow(upper.data(), lower.data(), width, out, out + half); },
            [&](auto* out) { Twins::chromaRow(upper.data(), lower.data(), width, out, out + half); },
            "chroma");
    }
}
