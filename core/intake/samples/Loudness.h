#pragma once

#include "core/model/Source.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <stop_token>
#include <vector>

namespace murbo {

/// How loud a source is over time: a byte for each tenth of a second, small enough to draw, to search and to
/// hand to a model.
struct Loudness {
    static constexpr int perSecond = 10;

    std::vector<std::uint8_t>
        levels;           ///< peaks, 0 at -60 dBFS and below to 255 at full scale, in equal steps of dB
    int rate = perSecond; ///< levels a second

    /// A source's loudness, out of the package's cache folder where it lies there, else measured and kept
    /// there. Throws a Problem where its file can't be read, or when stopped.
    static Loudness of(const Source& source, const std::optional<std::filesystem::path>& cache = std::nullopt,
                       std::stop_token stop = {});

    /// The same for many sources, several at once. Those that can't be read are left out.
    static std::map<UUID, Loudness> of(const std::vector<Source>& sources,
                                       const std::optional<std::filesystem::path>& cache,
                                       std::stop_token stop = {});

    /// Measures the first sound track of a file; a file without sound has no levels. Throws a Problem.
    static std::vector<std::uint8_t> measure(const std::filesystem::path& file, int perSecond,
                                             std::stop_token stop = {});

    /// The byte of a peak, 0 to 1 of full scale.
    static std::uint8_t level(double peak);

    /// The loudest level that a stretch (seconds) touches, 0 to 1.
    double level(double from, double to) const;

    bool operator==(const Loudness&) const = default;
};

}
