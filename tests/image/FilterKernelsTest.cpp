#include "tests/image/FilterTwins.h"
#include "tests/image/Targets.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Widths round which each size of vector has its tails.
const int widths[] = {1, 7, 8, 9, 16, 17, 33, 65, 333};

template <typename T>
std::vector<T> random(int count, int low, int high, unsigned seed = 1) {
    std::mt19937 generator(seed);
    std::vector<T> values(count);
    for (auto& value : values) value = T(low + std::int64_t(generator()) % (std::int64_t(high) - low + 1));
    return values;
}

/// Premultiplied pixels: stretches of opaque, of clear and of half-clear ones.
std::vector<std::uint8_t> pixels(int count, unsigned seed = 1) {
    auto result = random<std::uint8_t>(count * 4, 0, 255, seed);
    for (int at = 0; at < count; ++at) {
        auto* pixel = &result[at * 4];
        if (at / 16 % 3 != 1) pixel[3] = at / 16 % 3 == 0 ? 255 : 0;
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = std::uint8_t(pixel[channel] * pixel[3] / 255);
    }
    return result;
}

/// One kernel and its twin on rows of all widths, two pixels standing behind that must stay.
#define EXPECT_ROWS_AS_TWIN(function, ...)                                                            \
    for (const int width : widths)                                                                    \
    expectTwins(                                                                                      \
        pixels(width + 2, 3), [&](std::uint8_t* row) { Kernels::function(__VA_ARGS__, width, row); }, \
        [&](std::uint8_t* row) { Twins::function(__VA_ARGS__, width, row); }, #function)

}

TEST(FilterKernels, coloursChangeAsTheirTwin) {
    Kernels::ColourSums sums{{{4000, -900, 32000, 300}, {-32767, 100, 7, 4096}, {90, 3000, 1000, -800}},
                             {8191, -8191, 0},
                             8191,
                             false};
    EXPECT_ROWS_AS_TWIN(sumColours, sums);
    sums.bent = true;
    EXPECT_ROWS_AS_TWIN(sumColours, sums);
    for (const int levels : {2, 3, 6, 8, 64, 255}) EXPECT_ROWS_AS_TWIN(posterise, levels);
    for (const int side : {2, 17, 32, 64}) {
        auto entries = random<std::uint32_t>(side * side * side, 0, 0x7FFFFFFF);
        entries.resize(entries.size() + side * side + side + 1);
        EXPECT_ROWS_AS_TWIN(lookUpColours, Kernels::ColourTable{side, entries.data()});
    }
}

TEST(FilterKernels, lightChangesAsItsTwin) {
    const auto across = random<std::int32_t>(400, 0, 2048);
    const auto light = random<std::uint32_t>(4097, 0, 32767);
    EXPECT_ROWS_AS_TWIN(shadeRow, across.data(), 2000, light.data(), -77, 1999);
    auto shares = random<std::uint32_t>(256, 0, 255);
    for (auto& share : shares) share |= share << 16;
    EXPECT_ROWS_AS_TWIN(keepBright, shares.data());
    const auto grain = random<std::uint32_t>(400, 0, 0x7FFFFFFF);
    const auto in = pixels(400, 9);
    for (const int part : {0, 77}) {
        const Kernels::TapeRow tape{grain.data(), 0x12345678, 6, part, 21, 3, 29000};
        EXPECT_ROWS_AS_TWIN(tapeRow, tape, in.data() + 7 * 4);
    }
}

TEST(FilterKernels, comicsArePrintedAsTheirTwin) {
    const auto stored = random<std::uint8_t>(5 * 900, 0, 255);
    const auto deep = random<std::int16_t>(5 * 900, 0, 32640);
    const std::int16_t weights[] = {0, 9000, 9000, 3000, 3000};
    for (const int width : widths) {
        for (const bool bytes : {true, false}) {
            const std::uint8_t* rows[5];
            for (int row = 0; row < 5; ++row)
                rows[row] =
                    bytes ? &stored[row * 900] : reinterpret_cast<const std::uint8_t*>(&deep[row * 900]);
            const Kernels::Depth depth{bytes ? 1 : 2, bytes ? 7 : 0, 0};
            for (const int tolerance : {0, 3, 6})
                expectTwins(
                    std::vector<std::int16_t>(width + 4, 5),
                    [&](auto* out) { Kernels::evenOutRows(rows, weights, 5, depth, tolerance, width, out); },
                    [&](auto* out) { Twins::evenOutRows(rows, weights, 5, depth, tolerance, width, out); },
                    "even");
        }
        expectTwins(
            std::vector<std::int16_t>(width + 4, 5),
            [&](auto* out) { Kernels::brightnessRow(stored.data(), width, out); },
            [&](auto* out) { Twins::brightnessRow(stored.data(), width, out); }, "brightness");
    }
    EXPECT_ROWS_AS_TWIN(inkRow, deep.data(), deep.data() + 900, 128);
    const auto screen = random<std::int16_t>(400, -32767, 32767);
    const auto tones = random<std::uint32_t>(256, 0, 255);
    EXPECT_ROWS_AS_TWIN(printRow, Kernels::PrintRow{screen.data(), -30000, tones.data(), 22, 140, 6});
    EXPECT_ROWS_AS_TWIN(takeAlpha, pixels(400, 8).data());
}
