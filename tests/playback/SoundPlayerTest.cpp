#include "app/editor/playback/SoundPlayer.h"
#include "tests/playback/FakeOutput.h"
#include "tests/playback/NumberedSound.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

void wait(const std::function<bool()>& until) {
    while (!until()) std::this_thread::yield();
}

/// A sound player of the ramp on such an output.
struct Sounding {
    explicit Sounding(bool can, double patience = 1e9)
        : made(std::make_unique<FakeOutput>(can)),
          output(made.get()),
          player([this] { return std::move(made); }, patience) {
        player.load(ramp.tracks(), 3);
    }
    /// The mean gain of what is asked for next, from a place of the ramp on.
    float gainAt(double place) {
        std::vector<float> sound(2 * 1000);
        output->fill(sound);
        return sound[2 * 900] / static_cast<float>((place * second + 900) / (4 * second));
    }
    const NumberedSound ramp;
    std::unique_ptr<FakeOutput> made;
    FakeOutput* output;
    SoundPlayer player;
};

TEST(SoundPlayer, itsOutputLeadsTheClock) {
    Sounding sounding(true);
    const auto clock = sounding.player.start(1, 1);
    wait([&] { return sounding.output->starts == 1; });
    sounding.output->played = 0.25;
    wait([&] { return clock() == 0.25; }); // the start is taken in on another thread
    std::vector<float> sound(2 * 1000);
    sounding.output->fill(sound);
    EXPECT_NEAR(frameIn(sound[2 * 900]), second + 900, 1);
    sounding.player.load(sounding.ramp.tracks(0.5), 3);
    sounding.output->fill(sound);
    EXPECT_NEAR(frameIn(sound[2 * 900]), second + 1900, 1) << "another's sound waits for its start";
    const auto next = sounding.player.start(2, 1);
    wait([&] { return sounding.output->starts == 2; });
    EXPECT_GT(clock(), 0.25) << "a clock whose sound has ended goes on";
    sounding.output->played = 0.5;
    wait([&] { return next() == 0.5; });
    sounding.player.stop();
    wait([&] { return sounding.output->stops == 2; });
}

TEST(SoundPlayer, anotherMixAndLevelAreHeard) {
    Sounding sounding(true);
    sounding.player.load(sounding.ramp.tracks(0.25), 3);
    sounding.player.remix(sounding.ramp.tracks(0.5)); // before the first was taken over
    sounding.player.start(1, 1);
    wait([&] { return sounding.output->starts == 1; });
    EXPECT_NEAR(sounding.gainAt(1), 0.5, 0.01);
    sounding.player.remix(sounding.ramp.tracks());
    EXPECT_NEAR(sounding.gainAt(1 + 1000.0 / second), 1, 0.01);
    sounding.player.setVolume(0.5);
    EXPECT_NEAR(sounding.gainAt(1 + 2000.0 / second), 0.5, 0.01);
}

TEST(SoundPlayer, aClockStandsAsLongAsItWaitedAndALateSoundIsNotBegun) {
    Sounding late(true, -1000); // as if it had waited for long: its patience ended 1000 s ago
    late.output->ready = false;
    const auto clock = late.player.start(1, 1);
    const double first = clock();
    EXPECT_GE(first, 1000) << "it runs since then";
    wait([&] { return late.output->starts == 1; });
    late.output->played = 5000;
    late.output->ready = true;
    wait([&] { return late.output->stops == 1; });
    EXPECT_LT(clock(), 5000);
}

TEST(SoundPlayer, aClockGoesOnFromWhatWasHeard) {
    Sounding sounding(true);
    const auto clock = sounding.player.start(1, 1);
    wait([&] { return sounding.output->starts == 1; });
    sounding.output->played = 1000;
    wait([&] { return clock() == 1000; });
    sounding.output->played = 900;
    EXPECT_EQ(clock(), 1000) << "never back";
    sounding.player.stop();
    wait([&] { return sounding.output->stops == 1; });
    wait([&] { return clock() > 1000; });
}

TEST(SoundPlayer, withoutAnythingToHearItOnTheComputersClockLeads) {
    Sounding mute(false);
    const auto clock = mute.player.start(0, 1);
    const auto fast = SoundPlayer({}).start(0, 8);
    for (const auto& each : {clock, fast}) {
        const double first = each();
        wait([&] { return each() > first; });
    }
}

}
