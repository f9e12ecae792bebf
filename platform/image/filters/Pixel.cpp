#include "platform/image/filters/Pixel.h"

#include "platform/image/draw/PictureSource.h"
#include "platform/image/filters/Resampled.h"

#include <cmath>

namespace murbo::Filters {
namespace {

/// Where each pixel's cell lies along an axis.
std::vector<int> cellsOf(double scale, double shift, int from, int to) {
    std::vector<int> cells;
    for (int at = from; at < to; ++at) cells.push_back(int(std::floor((at + 0.5) * scale + shift)));
    return cells;
}

}

std::optional<Pixel> Pixel::clamped(const Rect& body) const {
    if (!(size > 1) || body.isEverything()) return std::nullopt;
    if (!std::isfinite(middle.x) || !std::isfinite(middle.y)) return std::nullopt;
    // Any of the cells' middles does as well.
    const double shown = std::min(size, Filter::maxLength);
    return Pixel{shown,
                 {std::remainder(middle.x - body.x, shown) + body.x,
                  std::remainder(middle.y - body.y, shown) + body.y}};
}

DrawTile Pixel::draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const {
    const double wide = std::max(size * place.a, 1.0);
    const double high = std::max(size * place.d, 1.0);
    const Point placed = place.apply(middle);
    const Point first{std::remainder(placed.x, wide), std::remainder(placed.y, high)};
    const auto toCells =
        Transform().translated(-first.x, -first.y).scaled(1 / wide, 1 / high).translated(0.5, 0.5);
    const auto area = PixelRect::touching(toCells.apply(bounds.rect())).grown(1, 1);
    auto cells = std::make_shared<Raster>(source.raster(place.then(toCells), area));
    if (cells->bitmap.empty()) return Resampled::nothing();
    const auto columns = cellsOf(toCells.a, toCells.tx, bounds.left, bounds.right);
    const auto rows = cellsOf(toCells.d, toCells.ty, bounds.top, bounds.bottom);
    return [=](const Tile& tile) {
        const auto& at = tile.area;
        for (int y = at.top; y < at.bottom; ++y) {
            auto* out = tile.at(at.left, y);
            const int cell = rows[y - bounds.top];
            if (y > at.top && rows[y - 1 - bounds.top] == cell) {
                std::memcpy(out, tile.at(at.left, y - 1), std::size_t(at.width()) * 4);
                continue;
            }
            for (int x = at.left; x < at.right; ++x)
                std::memcpy(out + std::ptrdiff_t(x - at.left) * 4, cells->at(columns[x - bounds.left], cell),
                            4);
        }
    };
}

}
