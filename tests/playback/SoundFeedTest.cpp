#include "app/editor/playback/SoundFeed.h"
#include "tests/playback/NumberedSound.h"

#include <gtest/gtest.h>

namespace murbo {

TEST(SoundFeed, soundsAtEachRateFromItsPlaceOn) {
    const NumberedSound ramp;
    for (const double rate : {1.0, 2.0, -1.0, -2.0}) {
        SoundFeed feed(ramp.tracks(), 3);
        feed.start(1.5, rate);
        std::vector<float> sound;
        for (const int frames : {700, 1301, 20000}) {
            std::vector<float> block(2 * frames);
            feed.read(block);
            sound.insert(sound.end(), block.begin(), block.end());
        }
        for (const int at : {1000, 1999, 2000, 2001, 9000, 22000})
            EXPECT_NEAR(frameIn(sound[2 * at]), 1.5 * second + rate * at, 1.6) << rate << " at " << at;
        EXPECT_LT(waves::largestStep(sound), 0.002F) << rate; // it begins by a fade
    }
}

TEST(SoundFeed, anotherMixOrLevelComesWithoutAClick) {
    const NumberedSound ramp;
    SoundFeed feed(ramp.tracks(), 3);
    feed.start(2, 1);
    std::vector<float> sound(2 * 4800);
    feed.read(sound);
    const float before = sound[sound.size() - 2];
    feed.replace(ramp.tracks(0.5));
    feed.setVolume(0.5);
    std::vector<float> after(2 * 4800);
    feed.read(after);
    EXPECT_NEAR(after.back(), 0.25 * (2 * second + 9599) / (4 * second), 1e-3);
    after.insert(after.begin(), 2, before);
    EXPECT_LT(waves::largestStep(after), 0.002F);
}

namespace {

/// What a feed gives next, in frames of stereo.
std::vector<float> read(SoundFeed& feed, int frames) {
    std::vector<float> sound(2 * static_cast<std::size_t>(frames), 9.0F);
    feed.read(sound);
    return sound;
}

}

TEST(SoundFeed, isSilentWhereItStandsOrIsTooFast) {
    const NumberedSound ramp;
    SoundFeed feed(ramp.tracks(), 3);
    for (const double rate : {0.0, 2.01, -2.01, 8.0}) {
        feed.start(1, rate);
        EXPECT_EQ(read(feed, 100), std::vector<float>(200, 0)) << rate;
    }
    feed.start(1, 1);
    std::vector<float> odd(7, 9.0F);
    feed.read(odd);
    EXPECT_EQ(odd[6], 9.0F) << "half a frame is left alone";
}

TEST(SoundFeed, beginsByAFadeOfTenMilliseconds) {
    const NumberedSound ramp;
    SoundFeed feed(ramp.tracks(), 3);
    feed.start(2, 1);
    const auto sound = read(feed, 480);
    EXPECT_EQ(sound[0], 0);
    EXPECT_NEAR(sound[2 * 240], 0.5 * (2 * second + 240) / (4 * second), 1e-3);
    EXPECT_EQ(sound[2 * 240], sound[2 * 240 + 1]) << "both sides";
    EXPECT_NEAR(frameIn(read(feed, 10)[0]), 2 * second + 480, 2);
    feed.start(1, 1);
    EXPECT_EQ(read(feed, 480)[0], 0) << "each start does";
}

TEST(SoundFeed, aLevelIsReachedInTenMillisecondsWhateverTheBlocks) {
    const NumberedSound ramp;
    for (const int block : {48, 100, 240, 480, 700}) {
        SoundFeed feed(ramp.tracks(), 3);
        feed.start(2, 1);
        read(feed, 9600);
        feed.setVolume(0);
        std::vector<float> fading;
        while (fading.size() < 2 * 4800) {
            const auto next = read(feed, block);
            fading.insert(fading.end(), next.begin(), next.end());
        }
        EXPECT_GT(fading[2 * 20], 0.3F) << block << ": not at once";
        EXPECT_LT(waves::largestStep(fading), 0.01F) << block;
        EXPECT_NEAR(fading.back(), 0, 1e-3) << block;
    }
}

TEST(SoundFeed, anotherMixIsTakenAtEachRateAndLeavesNothingBehind) {
    const NumberedSound ramp;
    for (const double rate : {1.0, 2.0, -1.0}) {
        SoundFeed feed(ramp.tracks(), 3);
        feed.start(1.5, rate);
        auto sound = read(feed, 4800);
        feed.replace(ramp.tracks(0.5));
        const auto after = read(feed, 4800);
        sound.insert(sound.end(), after.begin(), after.end());
        const auto more = read(feed, rate < 0 ? 48000 : 4800); // beyond the block that is mixed at once
        sound.insert(sound.end(), more.begin(), more.end());
        EXPECT_LT(waves::largestStep(sound), 0.002F) << rate << ": one goes over into the other";
        EXPECT_NEAR(frameIn(after[2 * 4000]), 0.5 * (1.5 * second + rate * 8800), 2) << rate;
        feed.replace(ramp.tracks(0.25));
        feed.start(2, rate); // the mix before was never heard here
        const auto anew = read(feed, 960);
        EXPECT_NEAR(frameIn(anew[2 * 240]), 0.5 * 0.25 * 2 * second, 400) << rate;
    }
}

TEST(SoundFeed, aFadeInSmallStepsNeverGoesTooFar) {
    const NumberedSound ramp;
    SoundFeed feed(ramp.tracks(), 3);
    feed.start(2, 1);
    float before = 0;
    for (int step = 0; step < 60; ++step) {
        const auto sound = read(feed, 48);
        EXPECT_GE(sound.front(), before - 1e-3F) << step;
        EXPECT_LE(frameIn(sound.back()), 2 * second + 48 * (step + 1)) << step;
        before = sound.back();
    }
    EXPECT_NEAR(frameIn(before), 2 * second + 60 * 48, 200);
}

TEST(SoundFeed, playsOnWhereItLeftOffAndSilenceBeyondItsEnds) {
    const NumberedSound ramp;
    SoundFeed feed(ramp.tracks(), 3);
    feed.start(2.9, 2);
    read(feed, 480);
    const auto sound = read(feed, 4000);
    EXPECT_NEAR(frameIn(sound[0]), 2.9 * second + 2 * 480, 2);
    EXPECT_EQ(sound[2 * 2000], 0) << "after the end";
    feed.start(0.05, -1);
    EXPECT_EQ(read(feed, 4000).back(), 0) << "before the start";
}

TEST(SoundFeed, crossesItsBlocksWithoutASkip) {
    const NumberedSound ramp;
    for (const auto& [from, rate] : {std::pair{2.5, -1.0}, {0.5, 2.0}}) {
        SoundFeed feed(ramp.tracks(), 3);
        feed.start(from, rate);
        const auto sound = read(feed, 60'000);
        for (int at = 1000; at < 59'000; ++at)
            ASSERT_NEAR(frameIn(sound[2 * static_cast<std::size_t>(at)]), from * second + rate * at, 1.6)
                << at;
    }
}

}
