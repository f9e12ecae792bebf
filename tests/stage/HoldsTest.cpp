#include "core/render/stage/Holds.h"
#include "platform/base/SeededRandom.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Stage;

TEST(Holds, swingAsOftenAndAsFarAsTheirTableSays) {
    EXPECT_NEAR(Holds::at(Hold::wobble, 0.25 / 1.1, 0).rotation, 5, 1e-9);
    EXPECT_NEAR(Holds::at(Hold::floating, 0.25 / 0.45, 0).dy, 14, 1e-9);
    EXPECT_NEAR(Holds::at(Hold::pulse, 0.25 / 1.6, 0).scale, 1.06, 1e-9);
    EXPECT_NEAR(Holds::at(Hold::drift, 2, 0).scale, 1.07, 1e-9);
    EXPECT_NEAR(Holds::at(Hold::spin, 2, 0).rotation, 240, 1e-9);
    EXPECT_NEAR(Holds::at(Hold::sway, 0.25 / 0.4, 0).rotation, 2.5, 1e-9);
    for (const auto word : rawTexts(Hold{}))
        EXPECT_EQ(Holds::isMoving(*fromRawText<Hold>(word)), word != "none") << word;
}

TEST(Holds, shakesBySeedAndStepAlone) {
    const Movement shake = Holds::at(Hold::shake, 0.1, 3);
    EXPECT_EQ(shake, Holds::at(Hold::shake, 0.12, 3)) << "the same 24th of a second";
    EXPECT_NE(shake, Holds::at(Hold::shake, 0.13, 3));
    EXPECT_NE(shake, Holds::at(Hold::shake, 0.1, 4));
    // The generator's first outputs from 3 × 7919 + 2 × 104729 + 1, 2, 3 × 1299709, worked out elsewhere.
    EXPECT_NEAR(shake.dx, 36 * -0.3020501184593788, 1e-12);
    EXPECT_NEAR(shake.dy, 36 * 0.15620499859292236, 1e-12);
    EXPECT_NEAR(shake.rotation, 2 * -0.484508471515391, 1e-12);
    EXPECT_EQ(SeededRandom::unit(~std::uint64_t(0)), 1 - 0x1p-53) << "never 1";
    EXPECT_TRUE(std::isfinite(Holds::at(Hold::shake, std::numeric_limits<double>::infinity(), 0).dx));
}
