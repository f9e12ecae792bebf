#include "core/render/plan/Motion.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

}

TEST(Motion, entrancesStandWhereTheirTableSays) {
    struct Case {
        Entrance entrance;
        double progress;
        Movement expected;
    };
    const Case cases[] = {
        {Entrance::none, 0, {}},
        {Entrance::fade, 0.5, {.opacity = 0.875}},
        {Entrance::pop, 0, {.scale = 0.001, .opacity = 0}},
        {Entrance::pop, 0.5, {.scale = 1.1125, .opacity = 1}},
        {Entrance::zoom, 0.5, {.scale = 1.075, .opacity = 0.875}},
        {Entrance::slideLeft, 0.5, {.dx = -125}},
        {Entrance::slideRight, 0.5, {.dx = 125}},
        {Entrance::slideUp, 0.5, {.dy = 150}},
        {Entrance::slideDown, 0.5, {.dy = -150}},
        {Entrance::drop, 0, {.dy = -1000}},
        {Entrance::spin, 0.5, {.scale = 0.9125, .rotation = -22.5, .opacity = 0.875}},
        {Entrance::stamp, 0.5, {.scale = 1.35, .opacity = 1}},
        {Entrance::stamp, 0.1, {.scale = 2.134, .opacity = 0.3}},
        {Entrance::wipe, 0.5, {.reveal = 0.875}},
        {Entrance::slideLeft, -3, {.dx = -1000}},
        {Entrance::slideLeft, none, {.dx = -1000}},
    };
    for (const Case& each : cases) {
        const Movement at = Motion::enter(each.entrance, each.progress, {1000, 2000});
        SCOPED_TRACE(std::string(rawText(each.entrance)) + " at " + std::to_string(each.progress));
        for (const auto part : {&Movement::dx, &Movement::dy, &Movement::scale, &Movement::rotation,
                                &Movement::opacity, &Movement::reveal})
            EXPECT_NEAR(at.*part, each.expected.*part, 1e-9);
    }
}

TEST(Motion, everyEntranceEndsAtRest) {
    for (const auto word : rawTexts(Entrance{}))
        for (const double end : {1.0, 7.0}) {
            const auto at = Motion::enter(*fromRawText<Entrance>(word), end, {1000, 2000});
            EXPECT_TRUE(at.rests()) << word;
            EXPECT_DOUBLE_EQ(at.opacity * at.reveal, 1) << word;
        }
}

TEST(Motion, aPlacementGoesFieldByField) {
    const Move move{.from = Placement{.x = 0.2, .rotation = 30},
                    .to = Placement{.x = 0.8, .y = 0.9, .scale = 2},
                    .ease = "linear"};
    EXPECT_EQ(Motion::placement(move, 0.5), (Placement{.x = 0.5, .y = 0.7, .scale = 1.5, .rotation = 30}));
    EXPECT_EQ(Motion::placement(move, 9), (Placement{.x = 0.8, .y = 0.9, .scale = 2, .rotation = 30}));
    const Placement all{.x = 0.7, .y = 0.1, .scale = 3, .rotation = 40};
    EXPECT_EQ(Motion::placement({.to = all, .ease = "linear"}, 0.5),
              (Placement{.x = 0.6, .y = 0.3, .scale = 2, .rotation = 20}))
        << "from none is from the middle, as it is";
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
