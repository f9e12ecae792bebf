#include "core/render/plan/Motion.h"
#include "core/render/plan/PlacedShot.h"
#include "tests/plan/Made.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

const UUID one = UUID::make();
const UUID two = UUID::make();

/// The placed shots as text: start, end, and the shot's moment, with a star for the implicit one.
std::string placed(std::vector<Shot> shots, std::vector<Cut> cuts) {
    std::string text;
    for (const PlacedShot& each : PlacedShot::place(std::move(shots), std::move(cuts)))
        text += fmt::format("{}{:.4f}-{:.4f} {:.4f}{}", text.empty() ? "" : ", ", each.start, each.end,
                            each.shot.at, each.implicit ? "*" : "");
    return text;
}

}

TEST(PlacedShot, coversTheVideoFromWhereItsMomentsAreShown) {
    using Made::cut;
    using Made::shot;
    const Cut first = cut(one, 10, 14);
    const Cut second = cut(two, 0, 2);
    EXPECT_EQ(placed({}, {}), "");
    EXPECT_EQ(placed({shot(one, 1)}, {cut(one, 1, 1)}), "0.0000-0.0000 1.0000*") << "no length";
    EXPECT_EQ(placed({}, {first, second}), "0.0000-6.0000 10.0000*");
    EXPECT_EQ(placed({shot(one, 10)}, {first}), "0.0000-4.0000 10.0000") << "exactly at the start";
    EXPECT_EQ(placed({shot(one, 9.9995)}, {first}), "0.0000-4.0000 9.9995") << "within the slack before it";
    EXPECT_EQ(placed({shot(one, 10), shot(one, 9.9995)}, {first}), "0.0000-4.0000 9.9995")
        << "of two that start at once the later in the list";
    EXPECT_EQ(placed({shot(one, 9.998)}, {first}), "0.0000-4.0000 10.0000*") << "before it";
    EXPECT_EQ(placed({shot(one, 13.9995)}, {first}), "0.0000-4.0000 10.0000*") << "too near the end";
    EXPECT_EQ(placed({shot(one, 10.0005)}, {first}), "0.0005-4.0000 10.0005")
        << "no head for half a millisecond";
    EXPECT_EQ(placed({shot(one, 10.002)}, {first}), "0.0000-0.0020 10.0000*, 0.0020-4.0000 10.0020");
    EXPECT_EQ(placed({shot(two, 1), shot(one, 11)}, {first, second}),
              "0.0000-1.0000 10.0000*, 1.0000-5.0000 11.0000, 5.0000-6.0000 1.0000");
    EXPECT_EQ(placed({shot(one, NAN), shot(one, 11), shot(one, 10)}, {first, second, first}),
              "0.0000-1.0000 10.0000, 1.0000-6.0000 11.0000, 6.0000-7.0000 10.0000, 7.0000-10.0000 11.0000")
        << "a moment shown twice";
}

TEST(PlacedShot, ofTwoShotsOnOneMomentTheLaterStays) {
    Shot early = Made::shot(one, 11);
    Shot late = Made::shot(one, 11);
    late.zoom = 2;
    const auto shots =
        PlacedShot::place(std::vector{Made::shot(one, 10), early, late}, std::vector{Made::cut(one, 10, 14)});
    ASSERT_EQ(shots.size(), 2);
    EXPECT_EQ(shots[1].shot, late);
}

TEST(PlacedShot, movesTheCamera) {
    struct Case {
        const char* move;
        double zoom, start, middle, end; // the shot's, then at the start, in the middle and behind the end
    };
    for (const Case& each :
         {Case{"push", 2, 1, 1.5, 2}, Case{"pull", 2, 2, 1.5, 1}, Case{"drift", 2, 2, 2.08, 2.16},
          Case{"pan-left", 1, 1.2, 1.2, 1.2}, Case{"pan-right", 1.5, 1.5, 1.5, 1.5},
          Case{"shake", 1.5, 1.5, 1.5, 1.5}, Case{"swirl", 1.5, 1.5, 1.5, 1.5}}) {
        PlacedShot placed{.start = 10, .end = 14, .shot = Made::shot(one, 0)};
        placed.shot.move = each.move;
        placed.shot.zoom = each.zoom;
        EXPECT_NEAR(placed.zoom(10), each.start, 1e-12) << each.move;
        EXPECT_NEAR(placed.zoom(12), each.middle, 1e-12) << each.move;
        EXPECT_NEAR(placed.zoom(15), each.end, 1e-12) << each.move;
    }
    PlacedShot pan{.start = 10, .end = 14, .shot = Made::shot(one, 0)};
    pan.shot.ease = "linear";
    pan.shot.move = "pan-left";
    EXPECT_NEAR(*pan.moved(11).focus, 0.675, 1e-12);
    pan.shot.move = "pan-right";
    EXPECT_NEAR(*pan.moved(11).focus, 0.325, 1e-12);
    pan.shot.move = "swirl";
    EXPECT_EQ(pan.moved(11), pan.shot);
}

TEST(PlacedShot, aShakeJoltsTwentyFourTimesASecondAndDiesAway) {
    PlacedShot placed{.start = 10, .end = 14, .shot = Made::shot(one, 0)};
    EXPECT_EQ(placed.jolt(10), 0);
    placed.shot.move = "shake";
    placed.shot.focus = 0.3;
    for (int step = 0; step < 19; ++step) {
        const double time = 10 + (step + 0.5) / 24;
        const double decay = 1 - (time - 10) / 0.8;
        const auto thrown = [&](std::uint64_t seed) { return decay * (Motion::noise(seed, step) - 0.5); };
        EXPECT_NEAR(placed.jolt(time), 40 * thrown(0x9E3779B97F72C0BA), 1e-9);
        EXPECT_NEAR(*placed.moved(time).focus, 0.3 + thrown(0x9E3779B97F5EADDF) / 4, 1e-9);
    }
    EXPECT_EQ(placed.jolt(10.81), 0);
    EXPECT_EQ(placed.moved(10.81).focus, 0.3);
}

TEST(PlacedShot, aFileThatAsksForMillionsOfShotsGetsABoundedPlan) {
    const std::vector<Cut> cuts(4000, Made::cut(one, 0, 1));
    const std::vector<Shot> shots(4000, Made::shot(one, 0.5));
    EXPECT_LE(PlacedShot::place(shots, cuts).size(), 30'000u);
}

TEST(PlacedShot, manyShotsThatNoCutShowsAreNoWork) {
    std::vector<Cut> cuts;
    std::vector<Shot> shots;
    constexpr int many = 300'000; // each held against each, this would not end
    for (int each = 0; each < many; ++each) {
        cuts.push_back(Made::cut(one, each, each + 0.5));
        shots.push_back(Made::shot(one, many - 1 - each + 0.7));
    }
    shots.push_back(Made::shot(one, 20.25));
    shots.push_back(Made::shot(one, 20));
    const auto placed = PlacedShot::place(shots, cuts);
    ASSERT_EQ(placed.size(), 3u);
    EXPECT_EQ(placed[1].start, 10);
    EXPECT_EQ(placed[2].start, 10.25);
}
