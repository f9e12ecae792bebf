#include "core/render/plan/Movement.h"

#include <algorithm>
#include <cmath>

namespace murbo {

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

}
