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
        return works;
    }
    void stop() override {
        ++stops;
        played = 0;
    }
    double heard() const override { return played; }

    const bool works;
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
    explicit Sounding(bool can) : made(std::make_unique<FakeOutput>(can)), output(made.get()) {}
    std::unique_ptr<FakeOutput> made;
    FakeOutput* output;
    SoundPlayer player{[this] { return std::move(made); }, 1e9};
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
