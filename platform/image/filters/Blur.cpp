#include "platform/image/draw/Rasterised.h"
#include "platform/image/filters/FilterDrawings.h"
#include "platform/image/filters/Gauss.h"

#include <algorithm>

namespace murbo::FilterDrawings {
namespace {

/// A deviation on the canvas that changes nothing to be seen, in pixels.
constexpr double leastSigma = 0.2;

}

bool blurs(const Blurred& filter, const Transform& place) {
    return filter.sigma * std::max(place.a, place.d) >= leastSigma;
}

Layer::Draw draw(const Blurred& filter, const Image::Node& of, const Transform& place,
                 const PixelRect& bounds, int depth, const std::vector<Row>& then) {
    if (!blurs(filter, place)) return unchanged(of, place, bounds, depth);
    const CoarseSigma coarseX(filter.sigma * place.a);
    const CoarseSigma coarseY(filter.sigma * place.d);
    const Gauss across(coarseX.sigma);
    const Gauss down(coarseY.sigma);
    const auto toGrid = Transform().scaled(1 / coarseX.shrink, 1 / coarseY.shrink);
    const auto area = sampled(toGrid, bounds).grown(across.reach, down.reach);
    const Raster sharp = rasterised(of, place.then(toGrid), area, depth);
    Raster blurred = Gauss::blurred(sharp, across, down);
    if (blurred.bitmap.empty()) return nothing();
    const auto& shown = blurred.area;
    for (int y = 0; y < shown.height(); ++y) {
        for (const auto& row : then) row(shown.left, shown.top + y, shown.width(), blurred.bitmap.row(y));
    }
    return sampling(std::move(blurred), toGrid, bounds);
}

}
