#include "platform/image/draw/Rasterised.h"
#include "platform/image/filters/FilterDrawings.h"

#include <cmath>

namespace murbo::FilterDrawings {
namespace {

/// Where each pixel's cell lies along an axis.
std::vector<int> cellsOf(double scale, double shift, int from, int to) {
    std::vector<int> cells;
    for (int at = from; at < to; ++at) cells.push_back(int(std::floor((at + 0.5) * scale + shift)));
    return cells;
}

}

Layer::Draw draw(const Pixellated& filter, const Image::Node& of, const Transform& place,
                 const PixelRect& bounds, int depth) {
    const double wide = std::max(filter.size * place.a, 1.0);
    const double high = std::max(filter.size * place.d, 1.0);
    const Point placed = place.apply(filter.middle);
    const Point middle{std::remainder(placed.x, wide), std::remainder(placed.y, high)};
    const auto toCells =
        Transform().translated(-middle.x, -middle.y).scaled(1 / wide, 1 / high).translated(0.5, 0.5);
    const auto area = PixelRect::touching(toCells.apply(bounds.rect())).grown(1, 1);
    auto cells = std::make_shared<Raster>(rasterised(of, place.then(toCells), area, depth));
    if (cells->bitmap.empty()) return nothing();
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
                std::memcpy(out + std::ptrdiff_t(x - at.left) * 4,
                            cells->tile().at(columns[x - bounds.left], cell), 4);
        }
    };
}

}
