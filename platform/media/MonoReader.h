#pragma once

#include "platform/media/SoundReader.h"

#include <cstdint>
#include <span>
#include <vector>

namespace murbo {

/// One file's sound for machines that listen: both sides averaged, at a lower rate, sample-exact on the
/// file's clock. What the lower rate can't hold is filtered out, not folded back. One thread at a time may
/// use a reader.
class MonoReader {
public:
    /// `rate` in samples a second, a whole fraction of 48,000.
    MonoReader(SoundReader opened, int rate);

    /// Length of the track's sound in seconds, from the file's zero to the track's end.
    double length() const { return sound.length(); }

    /// Fills `into` with the sound from sample `from` (0 at the file's zero); silence where there is none.
    /// Reading on where the last call ended costs no seek. Answers how many samples held sound, counted to
    /// the last one.
    std::int64_t read(std::int64_t from, std::span<float> into);

private:
    void fill(std::int64_t from, std::int64_t count);

    SoundReader sound;
    int factor;
    std::vector<float> filter;
    std::vector<std::vector<float>> phases; ///< the averaged sound, every factor-th sample of it in each
    std::int64_t heldFrom = 0;              ///< of the phases' first samples, at the lower rate
    std::int64_t soundEnd = 0;              ///< in frames of 48 kHz, after the last that held sound
    std::vector<float> frames;
};

}
