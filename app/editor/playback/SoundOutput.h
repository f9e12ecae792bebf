#pragma once

#include <functional>
#include <span>

namespace murbo {

/// Where a player's sound goes: a device, or a test's. It asks for sound as it needs it.
class SoundOutput {
public:
    /// Fills interleaved stereo at 48 kHz with what sounds next. Called on a thread of the output's.
    using Fill = std::function<void(std::span<float> into)>;

    virtual ~SoundOutput() = default;

    /// Begins to ask for sound; false where there is nothing to hear it on.
    virtual bool start(Fill fill) = 0;
    /// Falls silent at once. When this returns, nothing is asked for any more.
    virtual void stop() = 0;
    /// How much sound has been heard since the start, in seconds; it never goes back. Any thread may ask.
    virtual double heard() const = 0;
};

}
