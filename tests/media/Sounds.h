#pragma once

#include "platform/media/SoundReader.h"
#include "tests/media/Made.h"

namespace murbo {

inline std::vector<float> readAll(SoundReader& reader, std::int64_t frames, std::int64_t piece = 4800) {
    std::vector<float> all(frames * 2);
    for (std::int64_t from = 0; from < frames; from += piece) {
        const std::int64_t count = std::min(piece, frames - from);
        reader.read(from, std::span(all).subspan(from * 2, count * 2));
    }
    return all;
}

inline double loudest(std::span<const float> samples) {
    double found = 0;
    for (const float sample : samples) found = std::max(found, std::abs(static_cast<double>(sample)));
    return found;
}

inline double largestDifference(std::span<const float> one, std::span<const float> other) {
    double found = 0;
    for (std::size_t index = 0; index < std::min(one.size(), other.size()); ++index)
        found = std::max(found, std::abs(static_cast<double>(one[index]) - other[index]));
    return found;
}

/// The middle of the loudest 5 ms: where a click lies.
inline double clickAt(std::span<const float> samples) {
    double best = 0;
    std::size_t at = 0;
    for (std::size_t index = 0; index < samples.size(); index += 2)
        if (std::abs(samples[index]) > best) best = std::abs(samples[index]), at = index / 2;
    return static_cast<double>(at) / Sound::rate;
}

}
