#pragma once

#include "core/render/sound/SoundMixer.h"
#include "platform/base/Channel.h"

#include <atomic>
#include <cstdint>
#include <optional>
#include <thread>
#include <vector>

namespace murbo {

/// A video's whole sound in blocks, mixed a little ahead on a thread of its own: opening a file then keeps
/// nobody waiting. One thread at a time may take blocks.
class MixedSound {
public:
    /// `length` in seconds.
    MixedSound(std::vector<SoundMix::Track> tracks, double length);
    ~MixedSound();

    /// The next block, interleaved stereo at 48 kHz, waiting for it; nothing after the last or once stopped.
    std::optional<std::vector<float>> next();

    /// Ends the work early. Safe from any thread.
    void stop();

private:
    void mix();

    SoundMixer mixer;
    Channel<std::vector<float>> blocks;
    std::atomic<bool> stopped = false;
    std::exception_ptr failure; ///< what mixing threw; read once it has ended by itself
    std::jthread thread;
};

}
