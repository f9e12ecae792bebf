#pragma once

#include <cstdint>

namespace murbo {

/// A small generator with a state of one number (SplitMix64; Steele, Lea, Flood 2014). Equal seeds give equal
/// numbers on every machine.
struct SeededRandom {
    static constexpr std::uint64_t step = 0x9E3779B97F4A7C15;

    std::uint64_t state;

    explicit constexpr SeededRandom(std::uint64_t seed) : state(seed) {}

    constexpr std::uint64_t next() {
        state += step;
        return mix(state);
    }

    /// A number that looks nothing like `z`.
    static constexpr std::uint64_t mix(std::uint64_t z) {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }

    /// 0 to 1, without 1.
    static constexpr double unit(std::uint64_t bits) { return static_cast<double>(bits >> 11) * 0x1p-53; }
};

}
