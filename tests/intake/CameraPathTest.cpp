#include "core/intake/samples/CameraPath.h"

#include <gtest/gtest.h>

using namespace murbo;
using Motion = CameraFlow::Motion;
using CameraMove = Samples::Move;

namespace {

/// Three seconds of a motion, in widths a second, with a picture every `step` seconds.
CameraPath moved(const Motion& speed, double step) {
    CameraPath path;
    for (int at = 0; at * step < 3; ++at) {
        const Motion motion{speed.across * step, speed.down * step, speed.zoom * step, speed.roll * step};
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
