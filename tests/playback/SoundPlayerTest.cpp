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
    const NumberedSound ramp;
    std::unique_ptr<FakeOutput> made;
    FakeOutput* output;
    SoundPlayer player;
};

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
