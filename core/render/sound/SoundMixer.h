#pragma once

#include "core/render/sound/Limiter.h"
#include "core/render/sound/SoundMix.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace murbo {

/// Plays a sound mix: interleaved stereo floats at 48 kHz, each frame at its own place on the video's clock
/// however long the video is.
///
/// Where the sound of a piece begins or ends in the middle of its file it is faded over a few milliseconds,
/// so that a cut never clicks. Where lanes add up to more than full scale they are limited, not clipped;
/// sound that stays below comes through bit by bit. What is read is the same whatever the size and order of
/// the reads. Files are opened when they are needed and closed when they have passed; one that can't be read
/// is silent.
///
/// One thread at a time may use a mixer.
class SoundMixer {
public:
    /// `length` in seconds; after it there is silence.
    SoundMixer(std::vector<SoundMix::Track> tracks, double length);
    SoundMixer(SoundMixer&&) noexcept;
    SoundMixer& operator=(SoundMixer&&) noexcept;
    ~SoundMixer();

    /// Length of the whole video in frames.
    std::int64_t frames() const { return total; }

    /// Fills `into` (interleaved stereo) with the sound from frame `from`. Reading on where the last call
    /// ended costs no seek.
    void read(std::int64_t from, std::span<float> into);

    /// Opens the files that begin to sound between frame `from` and `until` and winds them to their place, so
    /// that `read` need not wait for them.
    void prepare(std::int64_t from, std::int64_t until);

private:
    struct TrackPlayer;

    void seek(std::int64_t from);
    std::size_t feed(std::span<float> into);
    void mix(TrackPlayer& player, std::span<float> block);
    void closePassed();

    std::vector<TrackPlayer> players;
    Limiter limiter;
    std::int64_t total = 0;
    std::int64_t fed = 0; ///< the frame that goes into the limiter next
};

}
