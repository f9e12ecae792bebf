#pragma once

#include "app/editor/playback/SoundOutput.h"

#include <atomic>
#include <thread>

namespace murbo {

/// An output whose clock the test turns, or that can't be started.
class FakeOutput : public SoundOutput {
public:
    explicit FakeOutput(bool can = true) : works(can) {}
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

}
