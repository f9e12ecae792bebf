#include "core/intake/samples/Exposure.h"
#include "tests/intake/DrawnLuma.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// All tones from one to another, as many of each.
Luma tones(double from, double to) {
    return drawn::luma(200, 100, [&](int x, int) { return from + (to - from) * x / 199; });
}

/// The good picture with a share of it in one tone.
Luma withShare(double share, int level) {
    return drawn::luma(200, 100, [&](int x, int y) {
        const bool taken = y >= 40 && y < 40 + 100 * share;
        return taken ? level : 48 + x * 0.75;
    });
}

}

TEST(Exposure, isFullWithTonesSpreadRoundTheMiddle) {
    EXPECT_EQ(Exposure::of(tones(48, 198)), 255);
    EXPECT_EQ(Exposure::of(tones(20, 240)), 255);
    EXPECT_NEAR(Exposure::of(tones(10, 74)), 255 * std::pow(42 / 255.0 / Exposure::lowestMean, 1.5) * 0.63,
                12)
        << "dark and narrow";
    EXPECT_NEAR(Exposure::of(tones(96, 146)), 255 * (0.25 + 0.75 * 45 / 255 / Exposure::wideSpread), 5)
        << "foggy";
    EXPECT_NEAR(Exposure::of(tones(120, 120)), 255 * 0.25, 1) << "one tone";
    EXPECT_LT(Exposure::of(tones(150, 249)), 190) << "bright";
    EXPECT_EQ(Exposure::of({}), 0);
}

TEST(Exposure, losesWhatIsClippedBeyondWhatEveryPictureHas) {
    EXPECT_EQ(Exposure::of(withShare(0.02, 255)), 255);
    EXPECT_EQ(Exposure::of(withShare(0.08, 0)), 255);
    EXPECT_NEAR(Exposure::of(withShare(0.12, 255)), 255 * std::exp2(-0.5), 4) << "a tenth too much white";
    EXPECT_NEAR(Exposure::of(withShare(0.18, 5)), 255 * std::exp2(-0.1 / 0.35), 8) << "of black, less harm";
}

TEST(Exposure, passesOverBlackBars) {
    const auto barred = drawn::luma(200, 100, [](int x, int y) {
        const bool bar = x < 30 || x >= 170 || y < 20 || y >= 80;
        return bar ? 8 : 48 + (x - 30) * 1.07;
    });
    EXPECT_EQ(Exposure::of(barred), 255);
    EXPECT_LT(Exposure::of(tones(0, 0)), 10) << "black throughout is no bar";
}
