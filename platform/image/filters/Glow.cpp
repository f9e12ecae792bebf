#include "platform/image/filters/Glow.h"

#include "platform/image/draw/AxisSampler.h"
#include "platform/image/draw/PictureSource.h"
#include "platform/image/filters/Blur.h"
#include "platform/image/filters/CoarseSigma.h"
#include "platform/image/filters/Gauss.h"
#include "platform/image/filters/Resampled.h"
#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::Filters {
namespace {

/// Brightness from which on light glows a little, and how much above all of it does.
constexpr double dimmest = 0.35;
constexpr double rise = 0.55;
/// What the narrow glow and the wide one give, in 1/255.
constexpr int narrowShare = 200;
constexpr int wideShare = 140;

/// Deviations of the wide glow for one of the narrow glow.
constexpr double wideGlow = 4;

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

/// The grids of a glow, from the canvas inward: that of the narrow glow, and a coarser one of the wide glow,
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

    Grids(const Glow& filter, const Transform& place, const PixelRect& bounds)
        : coarseX(filter.radius * place.a),
          coarseY(filter.radius * place.d),
          narrow(Resampled::needed(toNarrow, bounds)),
          wide(Resampled::needed(toWide, narrow).grown(across.reach, down.reach)),
          lit(Resampled::needed(toWide.inverse(), wide)) {}
};

/// What of the canvas gives light. Of a picture without bounds the body does, whose edges' light is repeated:
/// the rest can be far larger.
PixelRect givingOf(const Grids& grids, const ImageNode& of, const Transform& place) {
    const auto own = PixelRect::touching(place.apply(of.extent.isEverything() ? of.body : of.extent));
    return Resampled::needed(grids.toNarrow.inverse(), grids.lit).clampedTo(own.grown(1, 1));
}

PixelRect united(const PixelRect& one, const PixelRect& other) {
    return {std::min(one.left, other.left), std::min(one.top, other.top), std::max(one.right, other.right),
            std::max(one.bottom, other.bottom)};
}

/// All light that is added, on the narrow grid: that of the base's pixels in `giving`.
Raster glowOf(const Raster& base, const PixelRect& giving, const Grids& grids, double intensity) {
    const auto& narrow = grids.narrow;
    Raster bright = Raster::of(grids.lit, base.opaque);
    AxisSampler(base, grids.toNarrow.inverse(), grids.lit, giving).fill(bright.tile());
    bright.opaque = false;
    const auto shares = glowing(intensity);
    for (int y = 0; y < grids.lit.height(); ++y)
        Kernels::keepBright(shares.data(), grids.lit.width(), bright.bitmap.row(y));
    const Raster coarse = Resampled::raster(bright, grids.toWide.inverse(), grids.wide);
    Raster far = Resampled::raster(Gauss::blurred(coarse, grids.across, grids.down), grids.toWide, narrow);
    Raster near = Resampled::raster(Gauss::blurred(bright, grids.across, grids.down), Transform(), narrow);
    for (int y = 0; y < narrow.height(); ++y) {
        Kernels::fade(narrowShare, narrow.width(), near.bitmap.row(y));
        Kernels::fade(wideShare, narrow.width(), far.bitmap.row(y));
        Kernels::add(far.bitmap.row(y), narrow.width(), near.bitmap.row(y));
    }
    return near;
}

/// A picture with light upon it.
class GlowDrawing {
public:
    GlowDrawing(Raster picture, DrawTile light) : base(std::move(picture)), glow(std::move(light)) {}

    void fill(const Tile& tile) {
        tile.inStrips([&](const Tile& strip) {
            const auto& at = strip.area;
            if (scratch.width() < at.width() || scratch.height() < at.height())
                scratch = Bitmap::toBeFilled(at.width(), at.height());
            const Tile light{scratch.row(0), scratch.stride(), at};
            glow(light);
            for (int y = at.top; y < at.bottom; ++y) {
                auto* row = strip.at(at.left, y);
                std::memcpy(row, base.at(at.left, y), std::size_t(at.width()) * 4);
                Kernels::screen(light.at(at.left, y), at.width(), row);
            }
        });
    }

private:
    Raster base;
    DrawTile glow;
    Bitmap scratch;
};

}

std::optional<Glow> Glow::clamped(const Rect& body) const {
    if (!(radius > 0) || !(intensity > 0) || body.isEverything()) return std::nullopt;
    return Glow{std::min(radius, Filter::maxLength), std::min(intensity, 1.0)};
}

double Glow::reach() const {
    return radius * 3 * wideGlow;
}

DrawTile Glow::draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const {
    if (!Blur{radius}.drawsCoarsely(place)) return source.drawing(place, bounds);
    const Grids grids(*this, place, bounds);
    const auto giving = givingOf(grids, source.picture, place);
    Raster base = source.raster(place, united(giving, bounds));
    if (base.bitmap.empty() || !Raster::holds(grids.lit)) return Resampled::nothing();
    auto glow = Resampled::drawing(glowOf(base, giving, grids, intensity), grids.toNarrow, bounds);
    auto drawing = std::make_shared<GlowDrawing>(std::move(base), std::move(glow));
    return [drawing](const Tile& tile) { drawing->fill(tile); };
}

}
