#include "core/intake/samples/CameraPath.h"

#include <random>

#include <gtest/gtest.h>

using namespace murbo;
using Motion = CameraFlow::Motion;
using CameraMove = Samples::Move;

namespace {

/// Three seconds of a motion, in widths a second, with a picture every `step` seconds.
CameraPath moved(const Motion& speed, double step, double jitter = 0) {
    CameraPath path;
    std::mt19937 random(5);
    double before = 0;
    for (int at = 0; at * step < 3; ++at) {
        const double stray =
            (static_cast<double>(random()) / static_cast<double>(random.max()) - 0.5) * jitter;
        const Motion motion{speed.across * step + stray - before, speed.down * step, speed.zoom * step,
                            speed.roll * step};
        before = stray;
        path.add(at * step, at == 0 ? std::nullopt : std::optional(motion));
    }
    return path;
}

}

TEST(CameraPath, tellsMovesWhateverTheSpacingOfThePictures) {
    const std::pair<Motion, CameraMove> cases[] = {{{}, CameraMove::still},
                                                   {{.across = -0.1}, CameraMove::pan},
                                                   {{.down = 0.1, .roll = 0.05}, CameraMove::tilt},
                                                   {{.zoom = 0.2}, CameraMove::zoom},
                                                   {{.across = 0.1, .zoom = 0.2}, CameraMove::mixed}};
    for (const double step : {0.05, 0.1, 0.2, 0.6, 1.4}) {
        for (const auto& [speed, move] : cases) EXPECT_EQ(moved(speed, step).at(1.5).move, move) << step;
        EXPECT_GT(moved({.across = 0.1}, step).at(1.5).steadiness, 250) << step;
    }
}

TEST(CameraPath, shakeCountsTheSameAtEverySpacingAndInAPan) {
    const int still = moved({}, 0.05, 0.02).at(1.5).steadiness;
    EXPECT_LT(still, 170);
    EXPECT_GT(still, 60);
    EXPECT_NEAR(moved({}, 0.1, 0.02).at(1.5).steadiness, still, 70);
    EXPECT_NEAR(moved({.across = 0.2}, 0.05, 0.02).at(1.5).steadiness, still, 10);
    EXPECT_LT(moved({}, 0.05, 0.06).at(1.5).steadiness, still / 2);
}

TEST(CameraPath, aCutIsNoShakeButALostPictureIs) {
    CameraPath cut;
    CameraPath lost;
    for (int at = 0; at < 40; ++at) {
        const bool first = at == 20;
        cut.add(at * 0.05, first ? std::nullopt : std::optional(Motion{.across = at < 20 ? 0.01 : 0}));
        lost.add(at * 0.05, at % 2 == 0 ? std::nullopt : std::optional(Motion{}));
    }
    EXPECT_EQ(cut.at(0.9).move, CameraMove::pan);
    EXPECT_EQ(cut.at(1.05).move, CameraMove::still);
    EXPECT_GT(cut.at(0.98).steadiness, 240);
    EXPECT_EQ(lost.at(1).move, CameraMove::mixed);
    EXPECT_LT(lost.at(1).steadiness, 160);
    CameraPath alone;
    for (int at = 0; at < 20; ++at)
        alone.add(at * 0.05, at == 10 || at == 11 ? std::nullopt : std::optional(Motion{}));
    EXPECT_EQ(alone.at(0.5).move, CameraMove::mixed);
    EXPECT_EQ(alone.at(0.5).steadiness, 0);
}

TEST(CameraPath, fivePlacesAreEnoughForABend) {
    CameraPath bend;
    for (int at = 0; at < 5; ++at)
        bend.add(at * 0.2, at == 0 ? std::nullopt : std::optional(Motion{.across = 0.01 * at}));
    EXPECT_GT(bend.at(0.4).steadiness, 250);
}

TEST(CameraPath, forgettingChangesNothingThatIsStillAskedFor) {
    CameraPath path = moved({.across = 0.1}, 0.05, 0.01);
    const auto before = path.at(1.6);
    path.forgetBefore(1.5);
    EXPECT_EQ(path.at(1.6).steadiness, before.steadiness);
    EXPECT_EQ(path.at(1.6).move, before.move);
    EXPECT_EQ(CameraPath().at(3).move, CameraMove::still);
}
