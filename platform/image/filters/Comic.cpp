#include "platform/image/filters/Comic.h"

#include "platform/image/draw/AxisSampler.h"
#include "platform/image/draw/PictureSource.h"
#include "platform/image/filters/Gauss.h"
#include "platform/image/filters/Resampled.h"
#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::Filters {
namespace {

constexpr double pi = 3.14159265358979323846;

// Lengths are in the picture's own pixels.

/// Colours are evened out over this deviation, twice, where they differ by less than an eighth of full light.
constexpr double evenSigma = 3.5;
constexpr int tolerance = 3;
/// Where the picture is darker over the one deviation than over the other there is ink.
constexpr double fineSigma = 2;
constexpr double coarseSigma = 6;
/// How ink is coded in 8 bits, 128 being no difference: eight to a level; it begins at the one and grows with
/// each above by the other.
constexpr int inkSteep = 128;
constexpr int minInk = 153;
constexpr int inkGrowth = 6;
/// A picture that is seen smaller than this is sketched as finely as the canvas: its lines would get lost.
constexpr double smallest = 0.4;
/// Tones that a picture is printed in; from one to the next it changes on a part of the way only.
constexpr int tones = 5;
constexpr double softness = 0.35;
constexpr int blackest = 8;
/// How much stronger colours get, in 1/16.
constexpr int colourStrength = 22;
/// Dots lie on a lattice at 45 degrees, `dotPeriod` apart along a row, and move a tone by `dotLevels`.
constexpr double dotPeriod = 12;
constexpr double dotLevels = 10;
/// Dots that would have fewer pixels than this are left out, as their mean is none.
constexpr double minDot = 3;

/// The tone for each brightness: dark ones sink, the steps are soft so that nothing flickers.
std::vector<std::uint32_t> toneTable() {
    std::vector<std::uint32_t> table;
    for (int at = 0; at < 256; ++at) {
        const double light = at / 255.0;
        const double place = light * (0.72 + 0.28 * light) * (tones - 1);
        const double below = std::floor(place);
        const double step = std::clamp((place - below - 0.5) / softness + 0.5, 0.0, 1.0);
        const double tone = (below + step * step * (3 - 2 * step)) / (tones - 1);
        table.push_back(
            std::uint32_t(std::lround(tone * (1.25 - 0.25 * tone) * (255 - blackest) + blackest)));
    }
    return table;
}

/// The dots' share of each pixel along an axis, in 1/2^15.
std::vector<std::int16_t> dots(double start, double scale, int from, int to, double strength) {
    std::vector<std::int16_t> shares;
    for (int at = from; at < to; ++at) {
        const double turn = (at + 0.5 - start) / (dotPeriod * scale);
        shares.push_back(std::int16_t(std::lround(32767 * strength * std::cos(2 * pi * turn))));
    }
    return shares;
}

/// Evened out but for its edges; smaller by the weights' reach at each side.
Raster evened(const Raster& raster, const Gauss& gauss) {
    Raster result = Raster::of(raster.area.grown(-gauss.reach, -gauss.reach), true);
    const auto weigh = [](const auto& rows, const Gauss& given, Kernels::SampleDepth depth, int count,
                          std::int16_t* out) {
        Kernels::evenOutRows(rows.data(), given.weights.data(), int(rows.size()), depth, tolerance, count,
                             out);
    };
    separably({raster.bitmap.row(0),
               raster.bitmap.stride(),
               {1, 7, 0},
               4,
               raster.area.width(),
               raster.area.height()},
              gauss, gauss, weigh, [&](int y, const std::int16_t* row) {
                  Kernels::packPixels(row, result.area.width(), true, result.bitmap.row(y));
              });
    return result;
}

/// Brightness in 15 bits.
struct Brightness {
    PixelRect area;
    std::vector<std::int16_t> values;

    explicit Brightness(const PixelRect& whole) : area(whole), values(std::size_t(whole.area())) {}

    std::int16_t* at(int x, int y) {
        return &values[std::size_t(y - area.top) * area.width() + (x - area.left)];
    }

    static Brightness of(const Raster& raster) {
        Brightness light(raster.area);
        for (int y = 0; y < raster.area.height(); ++y)
            Kernels::brightnessRow(raster.bitmap.row(y), raster.area.width(),
                                   light.at(raster.area.left, raster.area.top + y));
        return light;
    }

    Brightness blurred(const Gauss& gauss) const {
        Brightness result(area.grown(-gauss.reach, -gauss.reach));
        separably({reinterpret_cast<const std::uint8_t*>(values.data()),
                   std::ptrdiff_t(area.width()) * 2,
                   {2, 0, 0},
                   1,
                   area.width(),
                   area.height()},
                  gauss, gauss, weighPlainly, [&](int y, const std::int16_t* row) {
                      std::copy_n(row, result.area.width(), result.at(result.area.left, result.area.top + y));
                  });
        return result;
    }
};

/// What is drawn on a coarse grid, where lines and areas are found.
struct Sketch {
    Transform toGrid;
    PixelRect area;
    Gauss even, fine, coarse;

    Sketch(const Transform& place, const PixelRect& bounds) : Sketch(std::sqrt(place.a * place.d), bounds) {}

    /// What must be seen for it.
    PixelRect wanted() const {
        const int margin = std::max(2 * even.reach, coarse.reach);
        return area.grown(margin, margin);
    }

    /// Even colours, in alpha what lies between no ink and much of it.
    Raster of(const Raster& sharp) const {
        Raster sketch = Raster::of(area, false);
        const Raster flat = evened(evened(sharp, even), even);
        Brightness light = Brightness::of(sharp);
        Brightness near = light.blurred(fine);
        Brightness far = light.blurred(coarse);
        for (int y = area.top; y < area.bottom; ++y) {
            auto* row = sketch.tile().at(area.left, y);
            std::memcpy(row, flat.at(area.left, y), std::size_t(area.width()) * 4);
            Kernels::inkRow(near.at(area.left, y), far.at(area.left, y), inkSteep, area.width(), row);
        }
        return sketch;
    }

private:
    /// Half as fine as the picture is at about its own size, and as the canvas where that is smaller.
    Sketch(double scale, const PixelRect& bounds)
        : Sketch(scale, scale < smallest ? 1 : std::exp2(std::max(std::round(std::log2(scale) + 0.9), 1.0)),
                 bounds) {}
    Sketch(double scale, double shrink, const PixelRect& bounds)
        : toGrid(Transform().scaled(1 / shrink, 1 / shrink)),
          area(PixelRect::touching(toGrid.apply(bounds.rect())).grown(2, 2)),
          even(evenSigma * scale / shrink, 2.2),
          fine(fineSigma * scale / shrink),
          coarse(coarseSigma * scale / shrink) {}
};

class ComicDrawing {
public:
    ComicDrawing(const Raster& sketch, const Transform& toGrid, const Transform& place,
                 const PixelRect& whole)
        : sampler(sketch, toGrid, whole, sketch.area), bounds(whole) {
        const double scale = std::sqrt(place.a * place.d);
        const double strength = std::clamp(dotPeriod * scale / minDot - 1, 0.0, 1.0) * dotLevels / 16;
        across = dots(place.tx, place.a, bounds.left, bounds.right, strength);
        down = dots(place.ty, place.d, bounds.top, bounds.bottom, 1);
    }

    /// `shape` gives alpha where it is not 255 all over.
    void fill(const Tile& tile, const Raster& shape) {
        tile.inStrips([&](const Tile& strip) {
            sampler.fill(strip);
            const auto& at = strip.area;
            for (int y = at.top; y < at.bottom; ++y) {
                auto* row = strip.at(at.left, y);
                Kernels::comicRow({&across[at.left - bounds.left], down[y - bounds.top], tones.data(),
                                   colourStrength, minInk, inkGrowth},
                                  at.width(), row);
                if (!shape.opaque) Kernels::takeAlpha(shape.at(at.left, y), at.width(), row);
            }
        });
    }

private:
    AxisSampler sampler;
    PixelRect bounds;
    std::vector<std::uint32_t> tones = toneTable();
    std::vector<std::int16_t> across;
    std::vector<std::int16_t> down;
};

}

DrawTile Comic::draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const {
    const Sketch sketch(place, bounds);
    const auto& toGrid = sketch.toGrid;
    const auto wanted = sketch.wanted();
    Raster sharp, shape;
    shape.opaque = source.picture.opaque.isEverything(); // of it all: no band may choose another way
    if (shape.opaque) {
        sharp = source.raster(place.then(toGrid), wanted);
    } else {
        // Drawn once and seen twice: filters upon filters must not double the work each time.
        shape = source.raster(place, Resampled::needed(toGrid.inverse(), wanted));
        if (!shape.bitmap.empty()) sharp = Resampled::raster(shape, toGrid.inverse(), wanted);
    }
    if (sharp.bitmap.empty()) return Resampled::nothing();
    auto drawing = std::make_shared<ComicDrawing>(sketch.of(sharp), toGrid, place, bounds);
    return [drawing, shape](const Tile& tile) { drawing->fill(tile, shape); };
}

}
