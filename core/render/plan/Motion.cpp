#include "core/render/plan/Motion.h"

#include "core/render/plan/Ease.h"
#include "platform/base/SeededRandom.h"

#include <algorithm>
#include <cmath>

namespace murbo {

namespace {

double cubed(double x) {
    return x * x * x;
}

/// Clamps, and takes what is no number as the beginning.
double share(double progress) {
    return progress > 0 ? std::min(progress, 1.0) : 0;
}

std::optional<double> between(std::optional<double> from, std::optional<double> to, double rest,
                              double eased) {
    if (!to) return from;
    const double begin = from.value_or(rest);
    return begin + eased * (*to - begin);
}

/// Overshoots by an eighth and settles.
double popped(double progress) {
    const double back = progress - 1;
    return std::max(1 + 2.9 * cubed(back) + 1.9 * back * back, 0.001);
}

}

Movement Motion::enter(Entrance entrance, double progress, Size frame) {
    const double p = share(progress);
    const double come = 1 - cubed(1 - p);
    const double left = 1 - come;
    switch (entrance) {
        case Entrance::none:
            return {};
        case Entrance::fade:
            return {.opacity = come};
        case Entrance::pop:
            return {.scale = popped(p), .opacity = std::min(4 * p, 1.0)};
        case Entrance::zoom:
            return {.scale = 1.6 - 0.6 * come, .opacity = come};
        case Entrance::slideLeft:
            return {.dx = -left * frame.width};
        case Entrance::slideRight:
            return {.dx = left * frame.width};
        case Entrance::slideUp:
            return {.dy = 0.6 * left * frame.height};
        case Entrance::slideDown:
            return {.dy = -0.6 * left * frame.height};
        case Entrance::drop:
            return {.dy = -0.5 * (1 - Ease::along(EaseCurve::bounce, p)) * frame.height};
        case Entrance::spin:
            return {.scale = 0.3 + 0.7 * come, .rotation = -180 * left, .opacity = come};
        case Entrance::stamp:
            return {.scale = 1 + 1.4 * (1 - p) * (1 - p), .opacity = std::min(3 * p, 1.0)};
        case Entrance::wipe:
            return {.reveal = come};
    }
    return {};
}

Placement Motion::placement(const Move& move, double progress) {
    const Placement from = move.from.value_or(Placement{});
    if (!move.to) return from;
    const double eased = Ease::named(move.ease, share(progress));
    return {.x = between(from.x, move.to->x, 0.5, eased),
            .y = between(from.y, move.to->y, 0.5, eased),
            .scale = between(from.scale, move.to->scale, 1, eased),
            .rotation = between(from.rotation, move.to->rotation, 0, eased)};
}

double Motion::noise(std::uint64_t seed, std::int64_t step) {
    return SeededRandom::unit(SeededRandom::mix(seed + static_cast<std::uint64_t>(step) * 104729));
}

std::int64_t Motion::step(double elapsed, double rate) {
    const double steps = elapsed * rate;
    return std::abs(steps) < 0x1p62 ? static_cast<std::int64_t>(steps) : 0;
}

}
