#include "platform/media/MonoReader.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace murbo {
namespace {

// Which copy runs is chosen before the thread sanitizer is there to watch.
#ifdef __SANITIZE_THREAD__
#define MURBO_CLONES
#else
#define MURBO_CLONES __attribute__((target_clones("avx2", "default")))
#endif

constexpr int reach = 48;               // output samples that the filter looks to either side
constexpr double cutoff = 0.96;         // its middle, as a share of the highest frequency that the rate holds
constexpr double shape = 7.0;           // of the Kaiser window: what lies beyond is down by some 70 dB
constexpr std::int64_t blockSize = 512; // stays in the first cache

/// The modified Bessel function of the first kind, order 0, by its power series.
double bessel(double x) {
    double sum = 1;
    double term = 1;
    for (int k = 1; term > sum * 1e-12; ++k) {
        term *= (x / (2 * k)) * (x / (2 * k));
        sum += term;
    }
    return sum;
}

/// A low-pass by the windowed-sinc method (Kaiser window), of 2 × reach × factor values about the middle one
/// at reach × factor; all together they make 1.
std::vector<float> lowPass(int factor) {
    const int middle = reach * factor;
    std::vector<double> exact(static_cast<std::size_t>(2 * middle));
    double sum = 0;
    for (int at = 0; at < 2 * middle; ++at) {
        const double x = at - middle;
        const double angle = std::numbers::pi * x * cutoff / factor;
        const double edge = 1 - (x / middle) * (x / middle);
        const double sinc = x == 0 ? 1 : std::sin(angle) / angle;
        sum += exact[static_cast<std::size_t>(at)] = sinc * bessel(shape * std::sqrt(edge)) / bessel(shape);
    }
    std::vector<float> filter(exact.size());
    std::transform(exact.begin(), exact.end(), filter.begin(),
                   [&](double value) { return static_cast<float>(value / sum); });
    return filter;
}

/// Adds one phase's share to a run of output. Output by output side by side, so that the compiler may take
/// several at once without changing a single sum.
MURBO_CLONES void addPhase(const float* in, const float* filter, std::size_t step, float* out,
                           std::int64_t count) {
    static_assert(2 * reach % 4 == 0);
    for (int tap = 0; tap < 2 * reach; tap += 4, in += 4, filter += 4 * step) {
        const float a = filter[0], b = filter[step], c = filter[2 * step], d = filter[3 * step];
        for (std::int64_t at = 0; at < count; ++at)
            out[at] += (a * in[at] + b * in[at + 1]) + (c * in[at + 2] + d * in[at + 3]);
    }
}

}

MonoReader::MonoReader(SoundReader opened, int rate)
    : sound(std::move(opened)),
      factor(Sound::rate / rate),
      filter(lowPass(factor)),
      phases(static_cast<std::size_t>(factor)) {}

/// Has the phases hold the output samples from `from` on, `count` of them; keeps what they hold already.
void MonoReader::fill(std::int64_t from, std::int64_t count) {
    auto held = static_cast<std::int64_t>(phases[0].size());
    const bool goesOn = from >= heldFrom && from <= heldFrom + held;
    const auto drop = goesOn ? from - heldFrom : held;
    if (!goesOn) soundEnd = from * factor;
    for (auto& phase : phases) phase.erase(phase.begin(), phase.begin() + drop);
    heldFrom = from;
    held -= drop;
    if (held >= count) return;
    const auto missing = count - held;
    frames.resize(static_cast<std::size_t>(missing * factor * Sound::channels));
    const auto first = (from + held) * factor;
    if (const auto got = sound.read(first, frames); got > 0) soundEnd = first + got;
    const float* in = frames.data();
    for (auto& phase : phases) phase.resize(static_cast<std::size_t>(count));
    for (auto at = held; at < count; ++at)
        for (auto& phase : phases) {
            phase[static_cast<std::size_t>(at)] = (in[0] + in[1]) * 0.5f;
            in += Sound::channels;
        }
}

std::int64_t MonoReader::read(std::int64_t from, std::span<float> into) {
    const auto count = static_cast<std::int64_t>(into.size());
    fill(from - reach, count + 2 * reach);
    std::fill(into.begin(), into.end(), 0.0f);
    for (std::int64_t block = 0; block < count; block += blockSize)
        for (std::size_t phase = 0; phase < phases.size(); ++phase)
            addPhase(phases[phase].data() + block, filter.data() + phase, phases.size(), into.data() + block,
                     std::min(blockSize, count - block));
    return std::clamp<std::int64_t>((soundEnd + factor - 1) / factor - from, 0, count);
}

}
