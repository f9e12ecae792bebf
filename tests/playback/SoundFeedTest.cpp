#include "app/editor/playback/SoundFeed.h"
#include "tests/playback/NumberedSound.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(SoundFeed, soundsAtEachRateFromItsPlaceOn) {
    for (const auto& [from, rate] : {std::pair{1.0, 1.0}, {0.4, 2.0}, {2.5, -1.0}, {2.9, -2.0}}) {
        RampFeed ramp;
        ramp.feed.start(from, rate);
        std::vector<float> sound;
        for (const int frames : {700, 1301, 58'000}) {
            const auto block = ramp.read(frames);
            sound.insert(sound.end(), block.begin(), block.end());
        }
        for (int at = 1000; at < 60'000; ++at)
            ASSERT_NEAR(frameIn(sound[2 * static_cast<std::size_t>(at)]), from * second + rate * at, 1.6)
                << rate << " at " << at;
        EXPECT_LT(waves::largestStep(sound), 0.002F) << rate; // it begins by a fade
    }
}

TEST(SoundFeed, isSilentWhereItStandsOrIsTooFast) {
    RampFeed ramp;
    for (const double rate : {0.0, 2.01, -2.01, 8.0}) {
        ramp.feed.start(1, rate);
        EXPECT_EQ(ramp.read(100), std::vector<float>(200, 0)) << rate;
    }
    ramp.feed.start(1, 1);
    std::vector<float> odd(7, 9.0F);
    ramp.feed.read(odd);
    EXPECT_EQ(odd[6], 9.0F) << "half a frame is left alone";
}

TEST(SoundFeed, beginsByAFadeOfTenMilliseconds) {
    RampFeed ramp;
    ramp.feed.start(2, 1);
    const auto sound = ramp.read(480);
    EXPECT_EQ(sound[0], 0);
    EXPECT_NEAR(sound[2 * 240], 0.5 * (2 * second + 240) / (4 * second), 1e-3);
    EXPECT_EQ(sound[2 * 240], sound[2 * 240 + 1]) << "both sides";
    EXPECT_NEAR(frameIn(ramp.read(10)[0]), 2 * second + 480, 2);
    ramp.feed.start(1, 1);
    EXPECT_EQ(ramp.read(480)[0], 0) << "each start does";
}

TEST(SoundFeed, aLevelIsReachedInTenMillisecondsWhateverTheBlocks) {
    for (const int block : {48, 100, 240, 480, 700}) {
        RampFeed ramp;
        ramp.feed.start(2, 1);
        ramp.read(9600);
        ramp.feed.setVolume(0);
        std::vector<float> fading;
        while (fading.size() < 2 * 4800) {
            const auto next = ramp.read(block);
            fading.insert(fading.end(), next.begin(), next.end());
        }
        EXPECT_GT(fading[2 * 20], 0.3F) << block << ": not at once";
        EXPECT_LT(waves::largestStep(fading), 0.01F) << block;
        EXPECT_NEAR(fading.back(), 0, 1e-3) << block;
    }
}

TEST(SoundFeed, anotherMixIsTakenAtEachRateAndLeavesNothingBehind) {
    for (const double rate : {1.0, 2.0, -1.0}) {
        RampFeed ramp;
        ramp.feed.start(1.5, rate);
        auto sound = ramp.read(4800);
        ramp.feed.replace(ramp.tracks(0.5));
        const auto after = ramp.read(4800);
        sound.insert(sound.end(), after.begin(), after.end());
        const auto more = ramp.read(rate < 0 ? 48000 : 4800); // beyond the block that is mixed at once
        sound.insert(sound.end(), more.begin(), more.end());
        EXPECT_LT(waves::largestStep(sound), 0.002F) << rate << ": one goes over into the other";
        EXPECT_NEAR(frameIn(after[2 * 4000]), 0.5 * (1.5 * second + rate * 8800), 2) << rate;
        ramp.feed.replace(ramp.tracks(0.25));
        ramp.feed.start(2, rate); // the mix before was never heard here
        const auto anew = ramp.read(960);
        EXPECT_NEAR(frameIn(anew[2 * 240]), 0.5 * 0.25 * 2 * second, 400) << rate;
    }
}

TEST(SoundFeed, aFadeInSmallStepsNeverGoesTooFar) {
    RampFeed ramp;
    ramp.feed.start(2, 1);
    float before = 0;
    for (int step = 0; step < 60; ++step) {
        const auto sound = ramp.read(48);
        EXPECT_GE(sound.front(), before - 1e-3F) << step;
        EXPECT_LE(frameIn(sound.back()), 2 * second + 48 * (step + 1)) << step;
        before = sound.back();
    }
    EXPECT_NEAR(frameIn(before), 2 * second + 60 * 48, 200);
}

TEST(SoundFeed, playsOnWhereItLeftOffAndSilenceBeyondItsEnds) {
    RampFeed ramp;
    ramp.feed.start(2.9, 2);
    ramp.read(480);
    const auto sound = ramp.read(4000);
    EXPECT_NEAR(frameIn(sound[0]), 2.9 * second + 2 * 480, 2);
    EXPECT_EQ(sound[2 * 2000], 0) << "after the end";
    ramp.feed.start(0.05, -1);
    EXPECT_EQ(ramp.read(4000).back(), 0) << "before the start";
}
