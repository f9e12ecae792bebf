#pragma once

#include "core/intake/samples/Samples.h"
#include "core/model/Source.h"

#include <filesystem>
#include <map>
#include <optional>
#include <stop_token>
#include <vector>

namespace murbo {

/// Measures what a source's picture is like over time, from the pictures that can be had without decoding
/// all of them.
namespace SampleMeasure {

inline constexpr double perSecond = 4;

/// Longer files are refused: what is measured must fit into memory and into its cache file.
inline constexpr double longest = 48 * 3600; ///< seconds

/// Measures the first picture track of a file; a file without a picture has no samples. Throws a Problem
/// where the file can't be read or shows nothing, and when stopped.
Samples measure(const std::filesystem::path& file, std::stop_token stop = {});

/// A source's samples, out of the package's cache folder where they lie there whole, else measured and kept
/// there. Throws as `measure`.
Samples of(const Source& source, const std::optional<std::filesystem::path>& cache = std::nullopt,
           std::stop_token stop = {});

/// The same for many sources, a few at once. Those that can't be read are left out.
std::map<UUID, Samples> of(const std::vector<Source>& sources,
                           const std::optional<std::filesystem::path>& cache, std::stop_token stop = {});

}

}
