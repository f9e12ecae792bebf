#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;
using Kernels::Columns;
using Kernels::Line;
using Kernels::Taps;

namespace {

/// The slow, obvious way.
void plainly(const Columns& columns, int to, const std::int16_t* in, std::int16_t* out) {
    const auto& taps = columns.taps;
    for (int at = 0; at < to * columns.values; ++at) {
        const auto& output = taps.outputs[at / columns.values - taps.from];
        const auto sample = [&](int tap) {
            return in[(output.first - taps.low + tap) * columns.values + at % columns.values];
        };
        int sum = 0;
        int differences = sample(0);
        for (int tap = 0; tap < output.count; ++tap) {
            const int weight = taps.weights[output.weights + tap];
            sum += sample(tap) * weight;
            if (tap > 0) differences += part(sample(tap) - sample(0), weight);
        }
        *out++ = std::int16_t(taps.sum == Taps::Sum::differences ? differences : (sum + (1 << 13)) >> 14);
    }
}

}

TEST(Resampling, rowsBlendByTheirWeights) {
    auto stored = bytes(6 * 700);
    const std::int16_t weights[] = {9000, 3000, 12000, 768, 5000, 3000};
    const std::uint8_t* rows[6];
    for (int row = 0; row < 6; ++row) rows[row] = &stored[std::size_t(row) * 700 + 1];
    for (const Kernels::SampleDepth depth : {Kernels::SampleDepth{1, 7, 0}, {2, 0, 1}, {2, 5, 0}}) {
        // Words of ten bits have nothing above them.
        for (std::size_t at = 1 + 1; depth.left == 5 && at < stored.size(); at += 2) stored[at] &= 3;
        const auto level = [&](int row, int at) -> int {
            if (depth.bytes == 1) return rows[row][at] << 7;
            const int word = rows[row][2 * at] | rows[row][2 * at + 1] << 8;
            return std::int16_t((word << depth.left) >> depth.right);
        };
        for (int taps = 1; taps <= 6; ++taps)
            expectRows(
                std::vector<std::int16_t>(longest + 8, 99), 1,
                [&](int width, auto* out) { Kernels::blendRows(rows, weights, taps, depth, width, out); },
                [&](int at) {
                    int sum = level(0, at);
                    for (int tap = 1; tap < taps; ++tap)
                        sum += part(level(tap, at) - level(0, at), weights[tap]);
                    return sum;
                },
                std::to_string(taps) + " rows");
    }
}

TEST(Resampling, rowsResampleAsThePlainWay) {
    for (const double step : {0.1, 0.49, 0.85, 1.0, 1.126, 1.74, 1.76, 3.3, 9.7, -0.6, -1.2, -2.5}) {
        for (const int values : {1, 4}) {
            for (const int outputs : {1, 3, 8, 61, 203}) {
                const Columns across(Line::through(step < 0 ? 201.4 : -1.3, step), 0, outputs, 0, 200,
                                     values);
                const auto& taps = across.taps;
                const auto in =
                    random<std::int16_t>((taps.high - taps.low) * values + Kernels::slack, 0, 32767);
                std::vector<std::int16_t> expected(outputs * values);
                plainly(across, outputs, in.data(), expected.data());
                onEachTarget([&](const char* name) {
                    std::vector<std::int16_t> found((outputs + 8) * values); // the last group is whole
                    Kernels::resampleRow(across, 0, outputs, in.data(), found.data());
                    found.resize(expected.size());
                    EXPECT_EQ(found, expected)
                        << step << ", " << outputs << " of " << values << " on " << name;
                });
            }
        }
    }
}
