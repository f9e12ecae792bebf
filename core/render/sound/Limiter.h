#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <utility>
#include <vector>

namespace murbo {

/// Keeps sound below full scale without the crackle of cutting its peaks off: the gain comes down evenly
/// before a peak, is low enough at the peak, and goes back slowly. Sound below the ceiling comes through bit
/// by bit.
///
/// The needed gain is held to its least over the look-ahead, may rise only so fast, and is averaged over the
/// same time, which smooths it without ever letting a peak through (P. Hämäläinen, "Smoothing of the Control
/// Signal Without Clipped Output in Digital Peak Limiters", DAFx 2002). Gains are whole numbers, so that sums
/// don't drift and the sound depends on what went before only as far as `memory` reaches.
class Limiter {
public:
    static constexpr double ceiling = 0.98855309465693886; ///< -0.1 dB of full scale

    /// Frames by which the sound comes out later: 5 ms.
    static constexpr int latency = 240;
    /// Frames after which a sound of the past no longer shows: the rise of 0.4 s and the averaging.
    static constexpr int memory = 19200 + 2 * latency + 1;

    Limiter();

    /// Takes the next frames of interleaved stereo in and gives those of `latency` frames before, in place.
    void process(std::span<float> frames);

    /// Forgets all sound.
    void reset();

private:
    std::int64_t smoothed(std::int64_t needed);

    std::vector<float> delayed;         ///< ring of the last `latency` frames
    std::vector<std::int64_t> released; ///< ring of the gains that are averaged
    std::deque<std::pair<std::int64_t, std::int64_t>>
        minima;             ///< (frame, gain), both rising: the minimum is in front
    std::int64_t sum = 0;   ///< of `released`
    std::int64_t last = 0;  ///< the gain released last
    std::int64_t frame = 0; ///< frames taken in
};

}
