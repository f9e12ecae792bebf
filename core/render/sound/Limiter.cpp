#include "core/render/sound/Limiter.h"

#include <algorithm>
#include <cmath>

namespace murbo {

namespace {

constexpr std::int64_t unity = std::int64_t{1} << 30;
constexpr int window = Limiter::latency + 1;
constexpr std::int64_t rise = unity / (Limiter::memory - 2 * window) + 1; // a frame

/// The largest gain at which neither side passes the ceiling.
std::int64_t neededGain(float left, float right) {
    const double peak = std::max(std::abs(left), std::abs(right));
    // A hair less, so that rounding doesn't pass it either.
    return peak > Limiter::ceiling ? static_cast<std::int64_t>(Limiter::ceiling / peak * (unity - 64))
                                   : unity;
}

}

Limiter::Limiter() {
    reset();
}

void Limiter::reset() {
    delayed.assign(2 * latency, 0.0F);
    released.assign(window, unity);
    minima.clear();
    sum = window * unity;
    last = unity;
    frame = 0;
}

/// The gain for the frame of `latency` frames before, given what the newest one needs.
std::int64_t Limiter::smoothed(std::int64_t needed) {
    while (!minima.empty() && minima.back().second >= needed) minima.pop_back();
    minima.emplace_back(frame, needed);
    if (minima.front().first <= frame - window) minima.pop_front();

    last = std::min(last + rise, minima.front().second);
    std::int64_t& oldest = released[frame % window];
    sum += last - oldest;
    oldest = last;
    ++frame;
    return sum;
}

void Limiter::process(std::span<float> frames) {
    for (std::size_t at = 0; at + 1 < frames.size(); at += 2) {
        float* const held = &delayed[2 * (frame % latency)];
        const std::int64_t gains = smoothed(neededGain(frames[at], frames[at + 1]));
        std::swap(frames[at], held[0]);
        std::swap(frames[at + 1], held[1]);
        if (gains == window * unity) continue;
        const double gain = static_cast<double>(gains) / (window * unity);
        frames[at] = static_cast<float>(frames[at] * gain);
        frames[at + 1] = static_cast<float>(frames[at + 1] * gain);
    }
}

}
