#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;
using Kernels::Columns;
using Kernels::Line;
using Kernels::Taps;

namespace {

Columns columns(double step, int outputs, int samples, int values, double offset = -1.3) {
    return Columns(Line::through(offset, step), 0, outputs, 0, samples, values);
}

}

TEST(Resampling, rowsBlendAsTheirTwin) {
    auto stored = bytes(6 * 700);
    const std::int16_t weights[] = {9000, 3000, 12000, 768, 5000, 3000};
    for (const Kernels::SampleDepth depth : {Kernels::SampleDepth{1, 7, 0}, {2, 0, 1}, {2, 5, 0}}) {
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

TEST(Resampling, rowsResampleAsTheirTwin) {
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
