#include "app/editor/playback/SoundPlayer.h"
#include "tests/TemporaryFolder.h"
#include "tests/sound/Waves.h"

#include <atomic>
#include <cmath>
#include <thread>

#include <gtest/gtest.h>

namespace murbo {
namespace {

constexpr int second = 48000;

/// A file whose every frame holds its own number, as a mix of one track.
struct Ramp {
    TemporaryFolder folder;

    std::vector<SoundMix::Track> tracks(double gain = 1) const {
        const auto file = folder / "ramp.wav";
        const auto value = [](int frame) { return static_cast<float>(frame) / (4 * second); };
        if (!std::filesystem::exists(file)) waves::write(file, waves::made(3 * second, value, value));
        return {{.file = file, .pieces = {{0, 3, 0}}, .gains = {{0, 3, gain, gain}}}};
    }
};

/// Which frame of the ramp a sample is.
double frameIn(float sample) {
    return sample * 4.0 * second;
}

TEST(SoundFeed, soundsAtEachRateFromItsPlaceOn) {
    const Ramp ramp;
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
    const Ramp ramp;
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
    const Ramp ramp;
    Sounding sounding(true);
    sounding.player.load(ramp.tracks(), 3);
    const auto clock = sounding.player.start(1, 1);
    wait([&] { return sounding.output->starts == 1; });
    sounding.output->played = 0.25;
    wait([&] { return clock() == 0.25; }); // the start is taken in on another thread
    std::vector<float> sound(2 * 1000);
    sounding.output->fill(sound);
    EXPECT_NEAR(frameIn(sound[2 * 900]), second + 900, 1);
    const auto next = sounding.player.start(2, 1);
    wait([&] { return sounding.output->starts == 2; });
    EXPECT_GE(clock(), 0.25);
    sounding.output->played = 0.5;
    wait([&] { return next() == 0.5; });
    sounding.player.stop();
    wait([&] { return sounding.output->stops == 2; });
}

TEST(SoundPlayer, withoutAnythingToHearItOnTheComputersClockLeads) {
    const Ramp ramp;
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
