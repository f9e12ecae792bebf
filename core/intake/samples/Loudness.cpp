#include "core/intake/samples/Loudness.h"

#include "core/intake/samples/Heard.h"
#include "core/intake/samples/LevelRange.h"
#include "core/intake/samples/Measures.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Problem.h"
#include "platform/media/MediaFile.h"
#include "platform/media/MonoReader.h"

namespace murbo {
namespace {

/// A low rate keeps the work small; what people hear as loud lies below its 4 kHz.
constexpr int samplesPerSecond = 8000;
constexpr double floorDecibels = 60;

/// A hundred days of levels; a cache file beyond that is none of ours.
constexpr std::size_t maxLevels = std::size_t{100} * 24 * 3600 * Loudness::perSecond;

float peakOf(std::span<const float> samples) {
    float peak = 0;
    for (const float sample : samples) peak = std::max(peak, std::abs(sample));
    return peak;
}

}

std::uint8_t Loudness::level(double peak) {
    // A sample counts as 16 bits: what lies below the last of them is silence.
    const double steps = std::min(std::round(peak * 32768), 32768.0);
    if (!(steps >= 1)) return 0;
    const double decibels = 20 * std::log10(steps / 32768);
    return static_cast<std::uint8_t>(
        std::clamp((decibels + floorDecibels) / floorDecibels * 255, 0.0, 255.0));
}

std::vector<std::uint8_t> Loudness::measure(const std::filesystem::path& file, int perSecond,
                                            std::stop_token stop) {
    if (!MediaFile::facts(file).sound) return {};
    MonoReader reader(SoundReader::open(file), samplesPerSecond);
    const std::size_t step = samplesPerSecond / std::clamp(perSecond, 1, samplesPerSecond);
    std::vector<float> block(step * 64);
    std::vector<std::uint8_t> levels;
    const double end = reader.length() * samplesPerSecond;
    if (!(end < static_cast<double>(maxLevels * step)))
        throw Problem("The sound is too long to be measured.");
    for (std::int64_t from = 0; static_cast<double>(from) < end;
         from += static_cast<std::int64_t>(block.size())) {
        if (stop.stop_requested()) throw Cancelled();
        const double left = std::min(end - static_cast<double>(from), static_cast<double>(block.size()));
        const auto present = std::span(block).first(static_cast<std::size_t>(left));
        reader.read(from, present);
        for (std::size_t at = 0; at + step <= present.size(); at += step)
            levels.push_back(level(peakOf(present.subspan(at, step))));
    }
    return levels;
}

Loudness Loudness::of(const Source& source, const std::optional<std::filesystem::path>& cache,
                      std::stop_token stop) {
    const auto place = cache ? Measures::place(*cache, "loudness", source, ".bin") : std::filesystem::path();
    if (cache) {
        if (const auto bytes = Measures::kept(place, maxLevels); !bytes.empty())
            return {{bytes.begin(), bytes.end()}};
    }
    Loudness measured{measure(source.path, perSecond, stop)};
    const auto& levels = measured.levels;
    if (cache) Measures::keep(place, {reinterpret_cast<const char*>(levels.data()), levels.size()});
    return measured;
}

std::map<UUID, Loudness> Loudness::of(const std::vector<Source>& sources,
                                      const std::optional<std::filesystem::path>& cache,
                                      std::stop_token stop) {
    return Measures::ofAll<Loudness>(sources, std::thread::hardware_concurrency(),
                                     [&](const Source& source) { return of(source, cache, stop); });
}

double Loudness::level(double from, double to) const {
    const auto range = LevelRange::of({from, to}, rate, levels.size());
    if (range.from >= range.to) return 0;
    const auto begin = levels.begin();
    return *std::max_element(begin + static_cast<std::ptrdiff_t>(range.from),
                             begin + static_cast<std::ptrdiff_t>(range.to)) /
           255.0;
}

}
