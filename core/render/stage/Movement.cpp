#include "core/render/stage/Movement.h"

#include "core/render/plan/Motion.h"
#include "platform/base/SeededRandom.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace murbo::Stage {
namespace {

using Key = Playbook::Key;

/// A swing of so many turns a second.
double swing(double perSecond, double held) {
    return std::sin(2 * std::numbers::pi * perSecond * held);
}

/// Three numbers round 0, new 24 times a second.
Movement shaken(double held, std::uint64_t seed) {
    const auto step = static_cast<std::uint64_t>(murbo::Motion::step(held, 24));
    const auto random = [&](std::uint64_t number) {
        const std::uint64_t state = seed * 7919 + step * 104729 + number * 1299709;
        return SeededRandom::unit(SeededRandom(state).next()) - 0.5;
    };
    return {.dx = random(1) * 36, .dy = random(2) * 36, .rotation = random(3) * 2};
}

double eased(const Key& to, double progress) {
    if (to.ease == "bounce") return murbo::Motion::bounce(progress);
    return Ease::named(to.ease, progress);
}

/// The keys that a time lies at or between. Of keys at one time the first is reached and the last is left.
struct Between {
    const Key* first = nullptr;
    const Key* before = nullptr; ///< the last one reached
    const Key* after = nullptr;  ///< the next one

    void meet(const Key& key, double time) {
        if (!first || key.t < first->t) first = &key;
        if (key.t <= time && (!before || key.t >= before->t)) before = &key;
        if (key.t > time && (!after || key.t < after->t)) after = &key;
    }
};

}

Movement Movement::with(const Movement& other) const {
    return {.dx = dx + other.dx,
            .dy = dy + other.dy,
            .scale = scale * other.scale,
            .rotation = rotation + other.rotation,
            .opacity = opacity * other.opacity,
            .reveal = std::min(reveal, other.reveal)};
}

bool Movement::rests() const {
    constexpr double unseen = 1e-6; // curves end within rounding of where they should
    return std::abs(dx) < unseen && std::abs(dy) < unseen && std::abs(scale - 1) < unseen &&
           std::abs(rotation) < unseen;
}

Movement enter(std::string_view name, double progress, Size frame) {
    const double share = progress > 0 ? std::min(progress, 1.0) : 0;
    if (name == "wipe") return {.reveal = 1 - std::pow(1 - share, 3)};
    const auto offset = murbo::Motion::enter(name, share, frame.width, frame.height);
    return {.dx = offset.x,
            .dy = offset.y,
            .scale = offset.scale,
            .rotation = offset.rotation,
            .opacity = offset.opacity};
}

Movement hold(std::string_view name, double held, std::uint64_t seed) {
    if (name == "wobble") return {.rotation = 5 * swing(1.1, held)};
    if (name == "float") return {.dy = 14 * swing(0.45, held)};
    if (name == "pulse") return {.scale = 1 + 0.06 * swing(1.6, held)};
    if (name == "shake") return shaken(held, seed);
    if (name == "drift") return {.scale = 1 + 0.035 * held};
    if (name == "spin") return {.rotation = 120 * held};
    if (name == "sway") return {.rotation = 2.5 * swing(0.4, held)};
    return {};
}

bool isMoving(std::string_view name) {
    constexpr double anywhere = 0.1; // no hold passes through rest here
    return !hold(name, anywhere, 0).rests();
}

std::optional<Keyed> interpolate(const std::vector<Key>& keys, std::optional<double> Key::*field,
                                 double time) {
    Between near;
    for (const Key& key : keys)
        if (key.*field) near.meet(key, time);
    if (!near.first) return std::nullopt;
    if (!(time > near.first->t)) return Keyed{*(near.first->*field)};
    if (!near.after) return Keyed{*(near.before->*field)};
    const double from = *(near.before->*field);
    const double to = *(near.after->*field);
    const double span = std::max(near.after->t - near.before->t, 0.0001);
    return Keyed{from + eased(*near.after, (time - near.before->t) / span) * (to - from), from != to};
}

}
