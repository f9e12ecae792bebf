#include "core/intake/samples/LevelRange.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

/// The whole part of a number, within bounds, for any number at all.
std::size_t whole(double value, std::size_t max) {
    if (!(value > 0)) return 0;
    return value >= static_cast<double>(max) ? max : static_cast<std::size_t>(value);
}

}

LevelRange LevelRange::of(const Stretch& stretch, int rate, std::size_t count) {
    const std::size_t from = whole(stretch.from * rate, count);
    const double last = std::floor(stretch.to * rate) + 1;
    return {from, std::max(from, whole(last, count))};
}

}
