#include "platform/image/draw/Raster.h"

#include <cmath>

namespace murbo {
namespace {

constexpr int longestSide = 32768;
constexpr std::int64_t mostPixels = std::int64_t(1) << 26;
/// Pixels a side that a grid goes up to; what is seen larger still is enlarged from there.
constexpr double finest = 16384;

double side(double length, double scale) {
    return std::clamp(std::ceil(length * scale - 1e-6), 1.0, finest);
}

}

bool Raster::holds(const PixelRect& area) {
    return !area.empty() && area.width() <= longestSide && area.height() <= longestSide &&
           area.area() <= mostPixels;
}

Raster Raster::of(const PixelRect& area, bool opaque) {
    return {Bitmap::toBeFilled(area.width(), area.height()), area, opaque};
}

Grid Grid::over(const Rect& extent, const Transform& place, double most) {
    const double wide = side(extent.width, std::min(std::hypot(place.a, place.b), most));
    const double high = side(extent.height, std::min(std::hypot(place.c, place.d), most));
    return {{0, 0, int(wide), int(high)},
            Transform().translated(-extent.x, -extent.y).scaled(wide / extent.width, high / extent.height)};
}

}
