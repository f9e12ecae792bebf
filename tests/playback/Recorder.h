#pragma once

#include "app/editor/playback/FrameSink.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

namespace murbo {

/// Keeps a player's pictures for a test. Waiting ends where the player hangs, so that the test fails and
/// does not stand.
class Recorder : public FrameSink {
public:
    void show(const PlayerFrame& frame) override {
        const std::lock_guard hold(lock);
        frames.push_back(frame);
        changed.notify_all();
    }

    /// The first frame from now on that is as wanted; nothing where none comes.
    std::optional<PlayerFrame> next(const std::function<bool(const PlayerFrame&)>& wanted) {
        std::unique_lock hold(lock);
        while (true) {
            for (; seen < frames.size(); ++seen)
                if (wanted(frames[seen])) return frames[seen++];
            if (changed.wait_for(hold, std::chrono::seconds(60)) == std::cv_status::timeout)
                return std::nullopt;
        }
    }
    std::optional<PlayerFrame> number(std::int64_t number) {
        return next([number](const auto& frame) { return frame.number == number; });
    }
    std::optional<PlayerFrame> exact() {
        return next([](const auto& frame) { return frame.exact; });
    }
    /// The numbers of all frames that were taken.
    std::vector<std::int64_t> numbers() {
        const std::lock_guard hold(lock);
        std::vector<std::int64_t> all;
        for (const auto& frame : frames) all.push_back(frame.number);
        return all;
    }

private:
    std::mutex lock;
    std::condition_variable changed;
    std::vector<PlayerFrame> frames;
    std::size_t seen = 0;
};

}
