#include "platform/image/draw/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

/// Pixels a side that a grid goes up to; what is seen larger still is enlarged from there.
constexpr double longestSide = 16384;

double side(double length, double scale) {
    return std::clamp(std::ceil(length * scale - 1e-6), 1.0, longestSide);
}

}

PixelGrid PixelGrid::over(const Rect& extent, const Transform& place, double finest) {
    const double wide = side(extent.width, std::min(std::hypot(place.a, place.b), finest));
    const double high = side(extent.height, std::min(std::hypot(place.c, place.d), finest));
    return {{0, 0, int(wide), int(high)},
            Transform().translated(-extent.x, -extent.y).scaled(wide / extent.width, high / extent.height)};
}

}
