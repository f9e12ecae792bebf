#include "app/editor/playback/SoundPlayer.h"
#include "tests/playback/NumberedSound.h"

#include <atomic>
#include <cmath>
#include <thread>

#include <gtest/gtest.h>

namespace murbo {
namespace {

/// An output whose clock the test turns, or that can't be started.
class FakeOutput : public SoundOutput {
public:
    explicit FakeOutput(bool can) : works(can) {}
    bool start(Fill given) override {
        fill = std::move(given);
        ++starts;
        while (!ready) std::this_thread::yield();
        return works;
    }
    void stop() override {
        ++stops;
        played = 0;
    }
    double heard() const override { return played; }

    const bool works;
    std::atomic<bool> ready = true;
    Fill fill;
    std::atomic<int> starts = 0;
    std::atomic<int> stops = 0;
    std::atomic<double> played = 0;
};

void wait(const std::function<bool()>& until) {
    while (!until()) std::this_thread::yield();
}

/// A sound player on such an output.
struct Sounding {
    explicit Sounding(bool can, double patience = 1e9)
        : made(std::make_unique<FakeOutput>(can)),
          output(made.get()),
          player([this] { return std::move(made); }, patience) {}
    /// The mean gain of what is asked for next, from a place of the ramp on.
    float gainAt(double place) {
        std::vector<float> sound(2 * 1000);
        output->fill(sound);
        return sound[2 * 900] / static_cast<float>((place * second + 900) / (4 * second));
    }
    std::unique_ptr<FakeOutput> made;
    FakeOutput* output;
    SoundPlayer player;
};

TEST(SoundPlayer, itsOutputLeadsTheClock) {
    const NumberedSound ramp;
    Sounding sounding(true);
    sounding.player.load(ramp.tracks(), 3);
    const auto clock = sounding.player.start(1, 1);
    wait([&] { return sounding.output->starts == 1; });
    sounding.output->played = 0.25;
    wait([&] { return clock() == 0.25; }); // the start is taken in on another thread
    std::vector<float> sound(2 * 1000);
    sounding.output->fill(sound);
    EXPECT_NEAR(frameIn(sound[2 * 900]), second + 900, 1);
    sounding.player.load(ramp.tracks(0.5), 3);
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
    const NumberedSound ramp;
    Sounding sounding(true);
    sounding.player.load(ramp.tracks(0.25), 3);
    sounding.player.remix(ramp.tracks(0.5)); // before the first was taken over
    sounding.player.start(1, 1);
    wait([&] { return sounding.output->starts == 1; });
    EXPECT_NEAR(sounding.gainAt(1), 0.5, 0.01);
    sounding.player.remix(ramp.tracks());
    EXPECT_NEAR(sounding.gainAt(1 + 1000.0 / second), 1, 0.01);
    sounding.player.setVolume(0.5);
    EXPECT_NEAR(sounding.gainAt(1 + 2000.0 / second), 0.5, 0.01);
}

TEST(SoundPlayer, aClockStandsAsLongAsItWaitedAndALateSoundIsNotBegun) {
    const NumberedSound ramp;
    Sounding late(true, -1000); // as if it had waited for long: its patience ended 1000 s ago
    late.output->ready = false;
    late.player.load(ramp.tracks(), 3);
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
    const NumberedSound ramp;
    Sounding sounding(true);
    sounding.player.load(ramp.tracks(), 3);
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
    const NumberedSound ramp;
    Sounding mute(false);
    mute.player.load(ramp.tracks(), 3);
    const auto clock = mute.player.start(0, 1);
    const auto fast = SoundPlayer({}).start(0, 8);
    for (const auto& each : {clock, fast}) {
        const double first = each();
        wait([&] { return each() > first; });
    }
}

}
}
