#include "core/intake/samples/CameraFlow.h"
#include "tests/intake/DrawnLuma.h"

#include <optional>

#include <gtest/gtest.h>

using namespace murbo;
using Motion = CameraFlow::Motion;

namespace {

constexpr int width = 320;
constexpr int height = 240;

/// Islands of even tones with hard shores.
double world(double x, double y) {
    const double waves = std::sin(0.11 * x + 0.07 * y) + std::sin(0.05 * x - 0.13 * y + 1) +
                         std::sin(0.19 * x + 0.03 * y + 2) * std::cos(0.17 * y);
    return 125 + 45 * std::floor(waves);
}

/// What a camera sees after a motion.
Luma seen(const Motion& motion) {
    const double scale = std::exp(motion.zoom);
    const double cosine = std::cos(motion.roll) / scale;
    const double sine = std::sin(motion.roll) / scale;
    return drawn::luma(width, height, [&](int x, int y) {
        const double right = x - (width - 1) / 2.0 - motion.across * width;
        const double down = y - (height - 1) / 2.0 - motion.down * width;
        return world(cosine * right + sine * down, cosine * down - sine * right);
    });
}

/// A little man who crosses the picture.
Luma passed(Luma luma, int left) {
    for (int y = 80; y < 200; ++y)
        for (int x = left; x < left + 40; ++x) luma.pixels[std::size_t(y) * width + x] = x % 9 < 4 ? 20 : 200;
    return luma;
}

std::optional<Motion> between(const Luma& one, const Luma& other) {
    CameraFlow flow;
    EXPECT_FALSE(flow.to(one)) << "the first one";
    return flow.to(other);
}

void expectNear(const std::optional<Motion>& found, const Motion& wanted) {
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->across, wanted.across, 0.0005);
    EXPECT_NEAR(found->down, wanted.down, 0.0005);
    EXPECT_NEAR(found->zoom, wanted.zoom, 0.0015);
    EXPECT_NEAR(found->roll, wanted.roll, 0.0015);
}

}

TEST(CameraFlow, isTheMotionThatThePictureWentThrough) {
    for (const Motion& motion : {Motion{}, Motion{.across = 0.03}, Motion{.across = -0.002, .down = 0.04},
                                 Motion{.zoom = 0.03}, Motion{.zoom = -0.02, .roll = 0.03}})
        expectNear(between(seen({}), seen(motion)), motion);
}

TEST(CameraFlow, isTheCamerasAndNotOfWhatPassesBeforeIt) {
    expectNear(between(passed(seen({}), 100), passed(seen({}), 112)), {});
    const Motion pan{.across = 0.02};
    expectNear(between(passed(seen({}), 100), passed(seen(pan), 80)), pan);
}

TEST(CameraFlow, isNoneBetweenPicturesThatHaveNothingInCommon) {
    const Luma grey = drawn::luma(width, height, [](int, int) { return 90; });
    EXPECT_EQ(between(grey, grey), Motion{}) << "nothing in it moves";
    EXPECT_FALSE(between(seen({}), seen({.across = 9}))) << "a cut";
    EXPECT_FALSE(between(seen({}), grey));
    EXPECT_FALSE(between(seen({}), {}));
    EXPECT_FALSE(between(seen({}), drawn::luma(height, width, [](int x, int y) { return world(x, y); })));
}
