#include "tests/image/Rows.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Rows;
using Kernels::Columns;
using Kernels::Line;
using Kernels::Taps;

TEST(Taps, aFlatRowStaysWhatItIs) {
    for (const double step : {0.3, 1.0, 1.37, 2.9, 20.0}) {
        const Columns across(Line::through(-1.3, step), 0, 100, 0, 150, 1);
        const std::vector<std::int16_t> in(150 + Kernels::slack, 30080);
        std::vector<std::int16_t> out(108);
        Kernels::resampleRow(across, 0, 100, in.data(), out.data());
        for (int at = 0; at < 100; ++at)
            EXPECT_NEAR(out[at], 30080, across.taps.sum == Taps::Sum::products ? 1 : 0);
    }
}
