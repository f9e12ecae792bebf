#pragma once

#include "app/editor/playback/FrameSink.h"
#include "app/editor/playback/SoundOutput.h"

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace murbo::players {

/// Notes when pictures were shown, by the computer's clock, and keeps the last.
class Watch : public FrameSink {
public:
    void show(const PlayerFrame& frame) override;

    /// Waits until a picture shown after now is as wanted, and says when it came.
    double wait(const std::function<bool(const PlayerFrame&)>& wanted);
    std::int64_t shown() const { return count; }

    std::function<void(const PlayerFrame&, double)> watching; ///< set before any picture comes

private:
    std::mutex lock;
    std::condition_variable changed;
    PlayerFrame last;
    double at = 0;
    std::atomic<std::int64_t> count = 0;
};

/// A sound device that only a clock drives: it asks for 10 ms of sound each 10 ms of the computer's time, and
/// says of each when it would be heard.
class ClockedOutput : public SoundOutput {
public:
    using Heard = std::function<void(std::span<const float>, double place)>;
    explicit ClockedOutput(Heard heard) : hears(std::move(heard)) {}
    ~ClockedOutput() override { stop(); }

    bool start(Fill fill) override;
    void stop() override;
    double heard() const override;

private:
    Heard hears;
    std::atomic<double> begun = 0;
    std::jthread thread;
};

/// User and system seconds of this process, all threads.
double cpu();
/// The most memory that this process has held, in MB.
double peakMegabytes();

/// 1920x1080 at 60 frames a second with a keyframe every 250, as capture programs write it; made once.
std::filesystem::path fastRecording();
/// Three hours of it, in little movement.
std::filesystem::path longRecording();
/// A white flash and a click at each whole second.
std::filesystem::path flashing(int seconds);

}
