#include "platform/image/FilterDrawings.h"
#include "platform/image/Gauss.h"
#include "platform/image/Rasterised.h"
#include "platform/image/kernels/FilterKernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::FilterDrawings {
namespace {

using Node = Image::Node;

/// A deviation on the canvas that changes nothing to be seen, in pixels.
constexpr double leastSigma = 0.2;
/// How much coarser the grid of a bloom's wide glow is than that of its narrow one.
constexpr double glowStep = 4;
/// What a bloom's glows give, narrow and wide, in 1/255.
constexpr int narrowShare = 200;
constexpr int wideShare = 140;

/// Pixels of a grid that bilinear sampling within `area` may read.
PixelRect sampled(const Transform& toGrid, const PixelRect& area) {
    return PixelRect::touching(toGrid.apply(area.rect())).grown(2, 2);
}

Layer::Draw sampling(Raster raster, const Transform& toGrid, const PixelRect& bounds) {
    const auto area = raster.area;
    auto sampler = std::make_shared<Sampler>(raster, toGrid, bounds, area);
    return [sampler](const Tile& tile) { sampler->fill(tile); };
}

template <typename Take>
void eachRow(Raster& raster, const Take& take) {
    for (int y = 0; y < raster.area.height(); ++y) take(y, raster.bitmap.row(y));
}

/// What of each brightness glows, in 1/255 in both halves.
std::vector<std::uint32_t> glowing(double intensity) {
    std::vector<std::uint32_t> shares(256);
    for (int at = 0; at < 256; ++at) {
        const double step = std::clamp((at / 255.0 - 0.35) / 0.55, 0.0, 1.0);
        const auto share = std::uint32_t(std::lround(255 * intensity * step * step * (3 - 2 * step)));
        shares[at] = share | share << 16;
    }
    return shares;
}

}

bool blurs(const Blurred& filter, const Transform& place) {
    return filter.sigma * std::max(place.a, place.d) >= leastSigma;
}

Layer::Draw draw(const Blurred& filter, const Node& of, const Transform& place, const PixelRect& bounds,
                 int depth, const std::vector<Row>& then) {
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
    eachRow(blurred, [&](int y, auto* pixels) {
        for (const auto& row : then) row(area.left, area.top + y, blurred.area.width(), pixels);
    });
    return sampling(std::move(blurred), toGrid, bounds);
}

Layer::Draw draw(const Bloomed& filter, const Node& of, const Transform& place, const PixelRect& bounds,
                 int depth) {
    const double sigmaX = filter.radius * place.a;
    const double sigmaY = filter.radius * place.d;
    if (std::max(sigmaX, sigmaY) < leastSigma) return unchanged(of, place, bounds, depth);
    const CoarseSigma coarseX(sigmaX);
    const CoarseSigma coarseY(sigmaY);
    const Gauss across(coarseX.sigma);
    const Gauss down(coarseY.sigma);
    const auto toNarrow = Transform().scaled(1 / coarseX.shrink, 1 / coarseY.shrink);
    const auto toWide = Transform().scaled(1 / glowStep, 1 / glowStep);
    const auto narrow = sampled(toNarrow, bounds);
    const auto wide = sampled(toWide, narrow).grown(across.reach, down.reach);
    const auto lit = sampled(toWide.inverse(), wide);
    const auto area = sampled(toNarrow.inverse(), lit);
    auto base = std::make_shared<Raster>(rasterised(of, place, area, depth));
    if (base->bitmap.empty()) return nothing();

    Raster bright = resampled(*base, toNarrow.inverse(), lit);
    bright.opaque = false;
    const auto shares = glowing(filter.intensity);
    eachRow(bright, [&](int, auto* row) { Kernels::keepBright(shares.data(), lit.width(), row); });
    Raster far =
        resampled(Gauss::blurred(resampled(bright, toWide.inverse(), wide), across, down), toWide, narrow);
    Raster near = resampled(Gauss::blurred(bright, across, down), Transform(), narrow);
    eachRow(near, [&](int y, auto* row) {
        Kernels::fade(narrowShare, narrow.width(), row);
        Kernels::fade(wideShare, narrow.width(), far.bitmap.row(y));
        Kernels::add(far.bitmap.row(y), narrow.width(), row);
    });
    return [base, glow = sampling(std::move(near), toNarrow, bounds),
            scratch = Bitmap()](const Tile& tile) mutable {
        inStrips(tile, [&](const Tile& strip) {
            const auto& at = strip.area;
            if (scratch.width() < at.width() || scratch.height() < at.height())
                scratch = Bitmap::toBeFilled(at.width(), at.height());
            const Tile light{scratch.row(0), scratch.stride(), at};
            glow(light);
            for (int y = at.top; y < at.bottom; ++y) {
                auto* row = strip.at(at.left, y);
                std::memcpy(row, base->tile().at(at.left, y), std::size_t(at.width()) * 4);
                Kernels::screen(light.at(at.left, y), at.width(), row);
            }
        });
    };
}

namespace {

/// Where each pixel's cell lies along an axis.
std::vector<int> cellsOf(double scale, double shift, int from, int to) {
    std::vector<int> cells;
    for (int at = from; at < to; ++at) cells.push_back(int(std::floor((at + 0.5) * scale + shift)));
    return cells;
}

}

Layer::Draw draw(const Pixellated& filter, const Node& of, const Transform& place, const PixelRect& bounds,
                 int depth) {
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
