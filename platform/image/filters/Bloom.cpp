#include "platform/image/draw/Rasterised.h"
#include "platform/image/filters/FilterDrawings.h"
#include "platform/image/filters/Gauss.h"
#include "platform/image/kernels/FilterKernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::FilterDrawings {
namespace {

/// Brightness from which on light glows a little, and how much above all of it does.
constexpr double dimmest = 0.35;
constexpr double rise = 0.55;
/// What the narrow glow and the wide one give, in 1/255.
constexpr int narrowShare = 200;
constexpr int wideShare = 140;

/// What of each brightness glows, in 1/255 in both halves.
std::vector<std::uint32_t> glowing(double intensity) {
    std::vector<std::uint32_t> shares(256);
    for (int at = 0; at < 256; ++at) {
        const double step = std::clamp((at / 255.0 - dimmest) / rise, 0.0, 1.0);
        const auto share = std::uint32_t(std::lround(255 * intensity * step * step * (3 - 2 * step)));
        shares[at] = share | share << 16;
    }
    return shares;
}

/// The grids of a bloom, from the canvas inward: that of the narrow glow, and a coarser one of the wide glow,
/// whose deviation there is the same.
struct Grids {
    CoarseSigma coarseX, coarseY;
    Gauss across{coarseX.sigma};
    Gauss down{coarseY.sigma};
    Transform toNarrow = Transform().scaled(1 / coarseX.shrink, 1 / coarseY.shrink);
    Transform toWide = Transform().scaled(1 / wideGlow, 1 / wideGlow); ///< from the narrow one
    PixelRect narrow;                                                  ///< what is shown of the narrow glow
    PixelRect wide;                                                    ///< what is blurred into the wide one
    PixelRect lit; ///< what of the narrow grid gives light to either

    Grids(const Bloomed& filter, const Transform& place, const PixelRect& bounds)
        : coarseX(filter.radius * place.a),
          coarseY(filter.radius * place.d),
          narrow(sampled(toNarrow, bounds)),
          wide(sampled(toWide, narrow).grown(across.reach, down.reach)),
          lit(sampled(toWide.inverse(), wide)) {}
};

/// What of the canvas gives light. Of a picture without bounds the body does, whose edges' light is repeated:
/// the rest can be far larger.
PixelRect givingOf(const Grids& grids, const Image::Node& of, const Transform& place) {
    const auto own = PixelRect::touching(place.apply(of.extent.isEverything() ? of.body : of.extent));
    return sampled(grids.toNarrow.inverse(), grids.lit).heldIn(own.grown(1, 1));
}

PixelRect united(const PixelRect& one, const PixelRect& other) {
    return {std::min(one.left, other.left), std::min(one.top, other.top), std::max(one.right, other.right),
            std::max(one.bottom, other.bottom)};
}

/// All light that is added, on the narrow grid: that of the base's pixels in `giving`.
Raster glowOf(const Raster& base, const PixelRect& giving, const Grids& grids, double intensity) {
    const auto& narrow = grids.narrow;
    Raster bright = Raster::of(grids.lit, base.opaque);
    Sampler(base, grids.toNarrow.inverse(), grids.lit, giving).fill(bright.tile());
    bright.opaque = false;
    const auto shares = glowing(intensity);
    for (int y = 0; y < grids.lit.height(); ++y)
        Kernels::keepBright(shares.data(), grids.lit.width(), bright.bitmap.row(y));
    const Raster coarse = resampled(bright, grids.toWide.inverse(), grids.wide);
    Raster far = resampled(Gauss::blurred(coarse, grids.across, grids.down), grids.toWide, narrow);
    Raster near = resampled(Gauss::blurred(bright, grids.across, grids.down), Transform(), narrow);
    for (int y = 0; y < narrow.height(); ++y) {
        Kernels::fade(narrowShare, narrow.width(), near.bitmap.row(y));
        Kernels::fade(wideShare, narrow.width(), far.bitmap.row(y));
        Kernels::add(far.bitmap.row(y), narrow.width(), near.bitmap.row(y));
    }
    return near;
}

/// A picture with light upon it.
class BloomDrawing {
public:
    BloomDrawing(Raster picture, Layer::Draw light) : base(std::move(picture)), glow(std::move(light)) {}

    void fill(const Tile& tile) {
        inStrips(tile, [&](const Tile& strip) {
            const auto& at = strip.area;
            if (scratch.width() < at.width() || scratch.height() < at.height())
                scratch = Bitmap::toBeFilled(at.width(), at.height());
            const Tile light{scratch.row(0), scratch.stride(), at};
            glow(light);
            for (int y = at.top; y < at.bottom; ++y) {
                auto* row = strip.at(at.left, y);
                std::memcpy(row, base.tile().at(at.left, y), std::size_t(at.width()) * 4);
                Kernels::screen(light.at(at.left, y), at.width(), row);
            }
        });
    }

private:
    Raster base;
    Layer::Draw glow;
    Bitmap scratch;
};

}

Layer::Draw draw(const Bloomed& filter, const Image::Node& of, const Transform& place,
                 const PixelRect& bounds, int depth) {
    if (!blurs({filter.radius}, place)) return unchanged(of, place, bounds, depth);
    const Grids grids(filter, place, bounds);
    const auto giving = givingOf(grids, of, place);
    Raster base = rasterised(of, place, united(giving, bounds), depth);
    if (base.bitmap.empty() || !Raster::holds(grids.lit)) return nothing();
    auto glow = sampling(glowOf(base, giving, grids, filter.intensity), grids.toNarrow, bounds);
    auto drawing = std::make_shared<BloomDrawing>(std::move(base), std::move(glow));
    return [drawing](const Tile& tile) { drawing->fill(tile); };
}

}
