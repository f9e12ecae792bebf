#include "core/render/sound/Limiter.h"
#include "tests/sound/Waves.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// What comes out for all frames of a sound, taken in blocks of some size, without the delay.
std::vector<float> limited(std::vector<float> samples, std::size_t blockFrames) {
    Limiter limiter;
    samples.resize(samples.size() + 2 * Limiter::latency, 0.0F);
    for (std::size_t at = 0; at < samples.size(); at += 2 * blockFrames)
        limiter.process(std::span(samples).subspan(at, std::min(2 * blockFrames, samples.size() - at)));
    return {samples.begin() + 2 * Limiter::latency, samples.end()};
}

std::vector<float> noise(int frames, double level) {
    std::minstd_rand random(7);
    std::uniform_real_distribution<float> any(-float(level), float(level));
    const auto draw = [&](int) { return any(random); };
    return waves::made(frames, draw, draw);
}

}

TEST(Limiter, leavesWhatStaysBelowTheCeilingBitByBit) {
    for (const auto& sound : {waves::tone(48000, 440, 0.988), noise(48000, 0.98)})
        EXPECT_EQ(limited(sound, 1000), sound);
}

TEST(Limiter, letsNoPeakThrough) {
    const auto clicks = waves::made(
        48000, [](int frame) { return frame % 1999 == 0 ? 7.0F : 0.5F; }, [](int) { return 0.1F; });
    for (const auto& sound : {waves::tone(48000, 50, 3), noise(48000, 2), noise(48000, 1e30), clicks})
        EXPECT_LE(waves::peak(limited(sound, 480)), Limiter::ceiling);
    const double level = waves::level(limited(waves::tone(48000, 440, 2), 480), 24000, 48000);
    EXPECT_NEAR(level, Limiter::ceiling, 0.03) << "no quieter than it must be";
}

TEST(Limiter, bendsTheSoundInsteadOfCuttingIt) {
    // One loud stretch in a quiet tone: the gain comes down and goes up without a step.
    const auto sound = waves::made(
        96000, [](int frame) { return (frame / 24000 == 1 ? 1.5F : 0.3F) * std::sin(float(frame) * 0.02F); },
        [](int) { return 0.5F; });
    const auto result = limited(sound, 480);
    double steepest = 0;
    for (std::size_t at = 3; at < result.size(); at += 2)
        steepest = std::max(steepest, std::abs(double(result[at]) - result[at - 2]));
    EXPECT_LE(steepest, 0.5 * 0.35 / 240) << "the constant side shows the gain alone";
    EXPECT_EQ(result.back(), 0.5F) << "and it is all back";
}

TEST(Limiter, knowsNoBlocksAndForgetsThePast) {
    const auto sound = noise(60000, 3);
    const auto whole = limited(sound, 60000);
    for (const std::size_t block : {1, 7, 240, 241, 4096}) EXPECT_EQ(limited(sound, block), whole) << block;
    constexpr int from = 2 * 10000;
    const auto later = limited({sound.begin() + from, sound.end()}, 512);
    EXPECT_TRUE(std::equal(later.begin() + 2 * Limiter::memory, later.end(),
                           whole.begin() + from + 2 * Limiter::memory));
}
