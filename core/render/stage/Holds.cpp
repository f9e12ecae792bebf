#include "core/render/stage/Holds.h"

#include "core/render/plan/Motion.h"
#include "platform/base/SeededRandom.h"

#include <cmath>
#include <numbers>

namespace murbo::Stage::Holds {
namespace {

/// A swing, -1 to 1.
double swing(double turnsASecond, double held) {
    return std::sin(2 * std::numbers::pi * turnsASecond * held);
}

/// Three numbers round 0, new 24 times a second.
Movement shaken(double held, std::uint64_t seed) {
    const auto step = static_cast<std::uint64_t>(Motion::step(held, 24));
    const auto random = [&](std::uint64_t number) {
        const std::uint64_t state = seed * 7919 + step * 104729 + number * 1299709;
        return SeededRandom::unit(SeededRandom(state).next()) - 0.5;
    };
    return {.dx = random(1) * 36, .dy = random(2) * 36, .rotation = random(3) * 2};
}

}

Movement at(Hold hold, double held, std::uint64_t seed) {
    switch (hold) {
        case Hold::none:
            return {};
        case Hold::wobble:
            return {.rotation = 5 * swing(1.1, held)};
        case Hold::floating:
            return {.dy = 14 * swing(0.45, held)};
        case Hold::pulse:
            return {.scale = 1 + 0.06 * swing(1.6, held)};
        case Hold::shake:
            return shaken(held, seed);
        case Hold::drift:
            return {.scale = 1 + 0.035 * held};
        case Hold::spin:
            return {.rotation = 120 * held};
        case Hold::sway:
            return {.rotation = 2.5 * swing(0.4, held)};
    }
    return {};
}

bool isMoving(Hold hold) {
    constexpr double anywhere = 0.1; // no hold passes through rest here
    return !at(hold, anywhere, 0).rests();
}

}
