#include "core/render/plan/Motion.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

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

double Ease::named(const std::optional<std::string>& name, double progress) {
    if (name == "linear") return progress;
    if (name == "snap") return 1 - cubed(1 - progress);
    return progress * progress * (3 - 2 * progress);
}

Motion::Offset Motion::enter(std::string_view name, double progress, double width, double height) {
    const double p = share(progress);
    const double come = 1 - cubed(1 - p);
    const double left = 1 - come;
    if (name == "fade") return {.opacity = come};
    if (name == "pop") return {.scale = popped(p), .opacity = std::min(4 * p, 1.0)};
    if (name == "zoom") return {.scale = 1.6 - 0.6 * come, .opacity = come};
    if (name == "slide-left") return {.x = -left * width};
    if (name == "slide-right") return {.x = left * width};
    if (name == "slide-up") return {.y = 0.6 * left * height};
    if (name == "slide-down") return {.y = -0.6 * left * height};
    if (name == "drop") return {.y = -0.5 * (1 - bounce(p)) * height};
    if (name == "spin") return {.scale = 0.3 + 0.7 * come, .rotation = -180 * left, .opacity = come};
    if (name == "stamp") return {.scale = 1 + 1.4 * (1 - p) * (1 - p), .opacity = std::min(3 * p, 1.0)};
    return {};
}

double Motion::bounce(double progress) {
    struct Arc {
        double until, middle, height;
    };
    static constexpr Arc arcs[] = {{1 / 2.75, 0, 0},
                                   {2 / 2.75, 1.5 / 2.75, 0.75},
                                   {2.5 / 2.75, 2.25 / 2.75, 0.9375},
                                   {HUGE_VAL, 2.625 / 2.75, 0.984375}};
    const Arc& arc = *std::find_if(std::begin(arcs), std::end(arcs) - 1,
                                   [&](const Arc& each) { return progress < each.until; });
    return 7.5625 * (progress - arc.middle) * (progress - arc.middle) + arc.height;
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
    std::uint64_t z = seed + static_cast<std::uint64_t>(step) * 104729;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return static_cast<double>((z >> 11) ^ (z >> 42)) * 0x1p-53;
}

std::int64_t Motion::step(double elapsed, double rate) {
    const double steps = elapsed * rate;
    return std::abs(steps) < 0x1p62 ? static_cast<std::int64_t>(steps) : 0;
}

}
