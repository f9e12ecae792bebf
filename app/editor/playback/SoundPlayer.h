#pragma once

#include "app/editor/playback/PlayerClock.h"
#include "app/editor/playback/SoundFeed.h"
#include "app/editor/playback/SoundOutput.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace murbo {

/// The sound of a player. Files are opened and mixed on the output's thread, the output is started and
/// stopped on one of its own: no call waits. May be called from any one thread.
class SoundPlayer {
public:
    using MakeOutput = std::function<std::unique_ptr<SoundOutput>()>;

    /// Without `make`, or where it makes none, there is no sound. It is called on the player's own thread.
    /// An output that takes longer than `patience` to start, in seconds, is not waited for.
    explicit SoundPlayer(MakeOutput make, double patience = 0.5);
    ~SoundPlayer();

    /// Takes another mix, in silence; `length` in seconds.
    void load(std::vector<SoundMix::Track> tracks, double length);
    /// Goes on with another mix.
    void remix(std::vector<SoundMix::Track> tracks);
    /// A factor from 0 to 1.
    void setVolume(double factor);

    /// Sounds from a place on at a rate. The answer is the clock to go by, in seconds: what has been heard
    /// since, or the computer's time where nothing can be heard.
    PlayerClock::Now start(double place, double rate);
    void stop();

private:
    struct SoundRun;
    struct SoundOrder {
        std::uint64_t number = 0;
        std::shared_ptr<SoundRun> session; ///< none: silence
        double place = 0;
        double rate = 0;
    };

    void give(SoundOrder next);
    void work(const std::stop_token& ending);
    void begin(const SoundOrder& now);
    void end();
    void takeMix();
    void fill(std::span<float> into);

    /// What the feed is to take over.
    struct TrackMix {
        std::vector<SoundMix::Track> tracks;
        double length = 0;
        bool another = false; ///< not the same video's
    };

    MakeOutput make;
    const double patience;
    std::mutex lock; ///< guards the order and the mix to come
    std::condition_variable_any changed;
    SoundOrder order;
    std::optional<TrackMix> coming;

    std::mutex mixing; ///< guards the feed, also while it reads
    std::optional<SoundFeed> feed;
    std::atomic<double> volume = 1;

    std::shared_ptr<SoundOutput> output; ///< this and the next are the working thread's own
    std::shared_ptr<SoundRun> running;
    std::jthread working;
};

}
