#pragma once

#include "platform/media/Sound.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace murbo {

/// Sound out of one file, sample-exact on the file's clock (the same as its FrameReader's). Mono goes to both
/// sides, more channels are mixed down. One thread at a time may use a reader.
class SoundReader {
public:
    /// Opens a sound track, counted from 0. Throws Problem where there is none or the file can't be read.
    static SoundReader open(const std::filesystem::path& path, int track = 0);

    SoundReader(SoundReader&&) noexcept;
    SoundReader& operator=(SoundReader&&) noexcept;
    ~SoundReader();

    /// Length of the track's sound in seconds, from the file's zero to the track's end.
    double length() const;

    /// Fills `into` (interleaved stereo) with the sound from frame `from` (at 48 kHz, 0 at the file's zero).
    /// Where there is no sound (before the start, after the end, in a broken stretch) it is silence. Reading
    /// on where the last call ended costs no seek. Answers how many frames held sound, counted to the last
    /// one.
    std::int64_t read(std::int64_t from, std::span<float> into);

private:
    struct SoundSearch;
    explicit SoundReader(std::unique_ptr<SoundSearch> given);
    std::unique_ptr<SoundSearch> search;
};

}
