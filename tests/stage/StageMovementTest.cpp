#include "core/playbooks/Words.h"
#include "core/render/stage/Movement.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Stage;
using Key = Playbook::Key;

namespace {

constexpr Size frame{1000, 2000};

Key key(double t, std::optional<double> x, std::optional<std::string> ease = {}) {
    Key result;
    result.t = t;
    result.x = x;
    result.ease = std::move(ease);
    return result;
}

double at(const std::vector<Key>& keys, double time) {
    return interpolate(keys, &Key::x, time).value_or(Keyed{std::nan("")}).value;
}

}

TEST(StageMovement, entersFromWhereTheWordSays) {
    EXPECT_DOUBLE_EQ(enter("slide-left", 0, frame).dx, -1000);
    EXPECT_DOUBLE_EQ(enter("slide-right", 0.5, frame).dx, 125);
    EXPECT_DOUBLE_EQ(enter("slide-up", 0, frame).dy, 1200) << "from below, as y points down";
    EXPECT_DOUBLE_EQ(enter("drop", 0, frame).dy, -1000);
    EXPECT_DOUBLE_EQ(enter("wipe", 0.5, frame).reveal, 0.875);
    EXPECT_GT(enter("pop", 0.7, frame).scale, 1.05) << "overshoots";
    for (const auto word : PlaybookWords::enters) {
        EXPECT_TRUE(enter(word, 1, frame).rests()) << word;
        EXPECT_DOUBLE_EQ(enter(word, 7, frame).opacity * enter(word, 7, frame).reveal, 1) << word;
    }
    EXPECT_EQ(enter("nonsense", 0, frame), Movement());
}

TEST(StageMovement, holdsMoveAndTheOthersRest) {
    EXPECT_NEAR(hold("wobble", 0.25 / 1.1, 0).rotation, 5, 1e-9);
    EXPECT_NEAR(hold("float", 0.25 / 0.45, 0).dy, 14, 1e-9);
    EXPECT_NEAR(hold("pulse", 0.25 / 1.6, 0).scale, 1.06, 1e-9);
    EXPECT_NEAR(hold("drift", 2, 0).scale, 1.07, 1e-9);
    for (const auto word : PlaybookWords::holds) EXPECT_EQ(isMoving(word), word != "none") << word;
    EXPECT_FALSE(isMoving("nonsense"));
}

TEST(StageMovement, shakesBySeedAndStepAlone) {
    const Movement shake = hold("shake", 0.1, 3);
    EXPECT_EQ(shake, hold("shake", 0.12, 3)) << "the same 24th of a second";
    EXPECT_NE(shake, hold("shake", 0.13, 3));
    EXPECT_NE(shake, hold("shake", 0.1, 4));
    for (double held = 0; held < 20; held += 0.01) {
        const Movement moved = hold("shake", held, 0);
        EXPECT_LE(std::abs(moved.dx), 18);
        EXPECT_LE(std::abs(moved.dy), 18);
        EXPECT_LE(std::abs(moved.rotation), 1);
    }
    // The generator's first outputs from 3 × 7919 + 2 × 104729 + 1, 2, 3 × 1299709, worked out elsewhere.
    EXPECT_NEAR(shake.dx, 36 * -0.3020501184593788, 1e-12);
    EXPECT_NEAR(shake.dy, 36 * 0.15620499859292236, 1e-12);
    EXPECT_NEAR(shake.rotation, 2 * -0.484508471515391, 1e-12);
    EXPECT_TRUE(std::isfinite(hold("shake", std::numeric_limits<double>::infinity(), 0).dx));
}

TEST(StageMovement, goesFromKeyToKey) {
    const std::vector<Key> keys{key(2, 30, "linear"), key(0, 10), key(1, 20, "snap"), key(0.5, {}),
                                key(3, 0, "bounce")};
    struct Case {
        double time, x;
    };
    for (const auto& [time, x] :
         {Case{-1, 10}, Case{0, 10}, Case{0.5, 18.75}, Case{1, 20}, Case{1.25, 22.5},
          Case{2.5, 30 - 30 * (7.5625 * std::pow(0.5 - 6 / 11.0, 2) + 0.75)}, Case{3, 0}, Case{99, 0}})
        EXPECT_NEAR(at(keys, time), x, 1e-9) << time;
    EXPECT_DOUBLE_EQ(at({key(0, 0), key(1, 1)}, 0.25), 0.15625) << "smooth where nothing is said";
    EXPECT_DOUBLE_EQ(at({key(0.5, 7)}, 99), 7) << "one key holds";
    EXPECT_DOUBLE_EQ(at({key(0, 1), key(1, 2), key(1, 3)}, 1), 3) << "two at one time: a jump";
    EXPECT_FALSE(interpolate(keys, &Key::opacity, 1));
    EXPECT_TRUE(interpolate(keys, &Key::x, 1.5)->travels);
    EXPECT_FALSE(interpolate(keys, &Key::x, 3)->travels);
}
