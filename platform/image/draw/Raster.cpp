#include "platform/image/draw/Raster.h"

namespace murbo {
namespace {

constexpr int longestSide = 32768;
constexpr std::int64_t maxPixels = std::int64_t(1) << 26;

}

bool Raster::holds(const PixelRect& area) {
    return !area.empty() && area.width() <= longestSide && area.height() <= longestSide &&
           area.area() <= maxPixels;
}

Raster Raster::of(const PixelRect& area, bool opaque) {
    return {Bitmap::toBeFilled(area.width(), area.height()), area, opaque};
}

}
