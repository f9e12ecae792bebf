#include "core/render/plan/Motion.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

}

TEST(Ease, everyNameButTwoIsASmoothstep) {
    EXPECT_DOUBLE_EQ(Ease::named("linear", 0.25), 0.25);
    EXPECT_DOUBLE_EQ(Ease::named("snap", 0.25), 0.578125);
    for (const std::optional<std::string>& name :
         {std::optional<std::string>(), std::optional<std::string>("Linear")})
        EXPECT_DOUBLE_EQ(Ease::named(name, 0.25), 0.15625);
}

TEST(Motion, entrancesStandWhereTheirTableSays) {
    struct Case {
        const char* name;
        double progress;
        Motion::Offset expected;
    };
    const Case cases[] = {
        {"fade", 0.5, {.opacity = 0.875}},
        {"pop", 0, {.scale = 0.001, .opacity = 0}},
        {"pop", 0.5, {.scale = 1.1125, .opacity = 1}},
        {"zoom", 0.5, {.scale = 1.075, .opacity = 0.875}},
        {"slide-left", 0.5, {.x = -125}},
        {"slide-right", 0.5, {.x = 125}},
        {"slide-up", 0.5, {.y = 150}},
        {"slide-down", 0.5, {.y = -150}},
        {"drop", 0, {.y = -1000}},
        {"drop", 1, {.y = 0}},
        {"spin", 0.5, {.scale = 0.9125, .rotation = -22.5, .opacity = 0.875}},
        {"stamp", 0.5, {.scale = 1.35, .opacity = 1}},
        {"stamp", 0.1, {.scale = 2.134, .opacity = 0.3}},
        {"slide-left", -3, {.x = -1000}},
        {"slide-left", none, {.x = -1000}},
        {"slide-left", 7, {}},
        {"none of these", 0, {}},
    };
    for (const Case& each : cases) {
        const Motion::Offset offset = Motion::enter(each.name, each.progress, 1000, 2000);
        SCOPED_TRACE(std::string(each.name) + " at " + std::to_string(each.progress));
        EXPECT_NEAR(offset.x, each.expected.x, 1e-9);
        EXPECT_NEAR(offset.y, each.expected.y, 1e-9);
        EXPECT_NEAR(offset.scale, each.expected.scale, 1e-9);
        EXPECT_NEAR(offset.rotation, each.expected.rotation, 1e-9);
        EXPECT_NEAR(offset.opacity, each.expected.opacity, 1e-9);
    }
}

TEST(Motion, theFourArcsOfABounceMeet) {
    for (const double seam : {0.36363636363636365, 0.7272727272727273, 0.9090909090909091, 1.0})
        EXPECT_NEAR(Motion::bounce(seam), 1, 1e-12) << seam;
    EXPECT_NEAR(Motion::bounce(0.2), 0.3025, 1e-12);
    EXPECT_NEAR(Motion::bounce(0.5454545454545454), 0.75, 1e-12);
    EXPECT_NEAR(Motion::bounce(0.8181818181818182), 0.9375, 1e-12);
    EXPECT_NEAR(Motion::bounce(0.9545454545454546), 0.984375, 1e-12);
    EXPECT_EQ(Motion::bounce(0), 0);
}

TEST(Motion, aPlacementGoesFieldByField) {
    const Move move{.from = Placement{.x = 0.2, .rotation = 30},
                    .to = Placement{.x = 0.8, .y = 0.9, .scale = 2},
                    .ease = "linear"};
    EXPECT_EQ(Motion::placement(move, 0.5), (Placement{.x = 0.5, .y = 0.7, .scale = 1.5, .rotation = 30}));
    EXPECT_EQ(Motion::placement(move, 9), (Placement{.x = 0.8, .y = 0.9, .scale = 2, .rotation = 30}));
    EXPECT_EQ(Motion::placement({.from = move.from}, 0.5), *move.from);
    EXPECT_EQ(Motion::placement({}, 0.5), Placement{});
}

TEST(Motion, noiseIsSplitMixOfSeedAndStepAlone) {
    // Worked out with arbitrary-precision integers.
    EXPECT_DOUBLE_EQ(Motion::noise(0x9E3779B97F5EADDF, 0), 0.09987638247100528);
    EXPECT_DOUBLE_EQ(Motion::noise(0x9E3779B97F5EADDF, 17), 0.17532224892738613);
    EXPECT_DOUBLE_EQ(Motion::noise(0x9E3779B97F72C0BA, -3), 0.1823617540616974);
    EXPECT_EQ(Motion::step(0.99, 24), 23);
    EXPECT_EQ(Motion::step(-0.05, 24), -1);
    for (const double beyond : {none, 1e300, -HUGE_VAL}) EXPECT_EQ(Motion::step(beyond, 24), 0);
}
