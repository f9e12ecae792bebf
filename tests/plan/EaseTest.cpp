#include "core/render/plan/Ease.h"

#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Ease, everyNameButTwoIsASmoothstep) {
    EXPECT_DOUBLE_EQ(Ease::named("linear", 0.25), 0.25);
    EXPECT_DOUBLE_EQ(Ease::named("snap", 0.25), 0.578125);
    for (const std::optional<std::string>& name :
         std::vector<std::optional<std::string>>{{}, "Linear", "smooth", "bounce"})
        EXPECT_DOUBLE_EQ(Ease::named(name, 0.25), 0.15625);
}

TEST(Ease, theFourArcsOfABounceMeet) {
    const auto bounce = [](double progress) { return Ease::along(EaseCurve::bounce, progress); };
    for (const double seam : {0.36363636363636365, 0.7272727272727273, 0.9090909090909091, 1.0})
        EXPECT_NEAR(bounce(seam), 1, 1e-12) << seam;
    EXPECT_NEAR(bounce(0.2), 0.3025, 1e-12);
    EXPECT_NEAR(bounce(0.5454545454545454), 0.75, 1e-12);
    EXPECT_NEAR(bounce(0.8181818181818182), 0.9375, 1e-12);
    EXPECT_NEAR(bounce(0.9545454545454546), 0.984375, 1e-12);
    EXPECT_EQ(bounce(0), 0);
}
