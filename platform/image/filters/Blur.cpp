#include "platform/image/filters/Blur.h"

#include "platform/image/draw/PictureSource.h"
#include "platform/image/filters/CoarseSigma.h"
#include "platform/image/filters/Gauss.h"
#include "platform/image/filters/Resampled.h"

#include <algorithm>

namespace murbo::Filters {
namespace {

/// A smaller deviation on the canvas changes nothing to be seen, in pixels.
constexpr double minSigma = 0.2;

}

std::optional<Blur> Blur::clamped(const Rect& body) const {
    if (!(sigma > 0) || body.isEverything()) return std::nullopt;
    return Blur{std::min(sigma, Filter::maxLength)};
}

bool Blur::drawsCoarsely(const Transform& place) const {
    return sigma * std::max(place.a, place.d) >= minSigma;
}

DrawTile Blur::draw(const PictureSource& source, const Transform& place, const PixelRect& bounds,
                    const std::vector<ChangeRow>& rows) const {
    if (!drawsCoarsely(place)) return source.drawing(place, bounds);
    const CoarseSigma coarseX(sigma * place.a);
    const CoarseSigma coarseY(sigma * place.d);
    const Gauss across(coarseX.sigma);
    const Gauss down(coarseY.sigma);
    const auto toGrid = Transform().scaled(1 / coarseX.shrink, 1 / coarseY.shrink);
    const auto area = Resampled::needed(toGrid, bounds).grown(across.reach, down.reach);
    Raster blurred = Gauss::blurred(source.raster(place.then(toGrid), area), across, down);
    if (blurred.bitmap.empty()) return Resampled::nothing();
    const auto& shown = blurred.area;
    for (int y = 0; y < shown.height(); ++y) {
        for (const auto& row : rows) row(shown.left, shown.top + y, shown.width(), blurred.bitmap.row(y));
    }
    return Resampled::drawing(blurred, toGrid, bounds);
}

}
