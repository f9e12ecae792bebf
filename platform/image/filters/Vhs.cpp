#include "platform/image/filters/Vhs.h"

#include "platform/base/SeededRandom.h"
#include "platform/image/draw/PictureSource.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::Filters {
namespace {

constexpr double lineShade = 0.18;
/// The most that noise adds, of full light, and how large its grains are, in the picture's pixels.
constexpr double maxNoise = 0.08;
constexpr double grainWidth = 3;
constexpr double grainHeight = 2;

/// How much of 0…to is dark: the first half of each period.
double darkUpTo(double to) {
    const double periods = std::floor(to / Vhs::linePeriod);
    return periods * Vhs::linePeriod / 2 + std::min(to - periods * Vhs::linePeriod, Vhs::linePeriod / 2);
}

std::uint32_t mixed(std::uint64_t value) {
    return std::uint32_t(SeededRandom::mix(value));
}

/// The grain under a pixel's middle, along one axis; `scale` is canvas pixels for one of the picture's.
std::int64_t grainAt(int pixel, double start, double scale, double size) {
    return std::int64_t(std::floor((pixel + 0.5 - start) / (scale * size)));
}

ColourMatrix pale() {
    auto matrix = ColourMatrix::saturated(0.7);
    for (auto& row : matrix.rows) {
        for (auto& share : row) share *= 1.1;
        row[3] -= 0.05;
    }
    return matrix;
}

class VhsDrawing {
public:
    VhsDrawing(const Vhs& given, const PictureSource& source, const Transform& at, const PixelRect& whole)
        : filter(given), place(at), bounds(whole), red(std::int64_t(std::lround(given.bleed * at.a * 256))) {
        margin = int(red / 256) + 1;
        picture = source.drawing(place, {bounds.left - margin, bounds.top, bounds.right, bounds.bottom});
        for (int x = bounds.left; x < bounds.right; ++x)
            grains.push_back(mixed(std::uint64_t(grainAt(x, place.tx, place.a, grainWidth))));
    }

    void fill(const Tile& tile) {
        const auto& area = tile.area;
        const int wide = area.width() + margin;
        tile.inStrips([&](const Tile& strip) {
            const auto& part = strip.area;
            scratch.resize(std::size_t(wide) * part.height() * 4);
            const Tile sharp{scratch.data(),
                             std::ptrdiff_t(wide) * 4,
                             {part.left - margin, part.top, part.right, part.bottom}};
            picture(sharp);
            for (int y = part.top; y < part.bottom; ++y) {
                paleRow(part.left - margin, y, wide, sharp.at(part.left - margin, y));
                Kernels::vhsRow(rowAt(part.left, y), sharp.at(part.left, y), part.width(),
                                strip.at(part.left, y));
            }
        });
    }

private:
    Kernels::VhsRow rowAt(int x, int y) const {
        const double top = (y - place.ty) / place.d - filter.lines;
        const double bottom = (y + 1 - place.ty) / place.d - filter.lines;
        const double dark = (darkUpTo(bottom) - darkUpTo(top)) / (bottom - top) * lineShade;
        // Of grains smaller than a pixel only their mean is seen.
        const double amount = std::min(maxNoise, maxNoise * std::sqrt(place.a * place.d) * grainWidth);
        const auto grain = std::uint64_t(grainAt(y, place.ty, place.d, grainHeight));
        Kernels::VhsRow row{};
        row.grain = grains.data() + (x - bounds.left);
        row.seed = mixed(grain * 0x9E3779B97F4A7C15 + std::uint64_t(filter.noise) + 1);
        row.whole = int(red / 256);
        row.part = int(red % 256);
        row.noise = int(std::lround(amount * 256));
        row.floor = int(std::lround((maxNoise - amount) / 2 * 255));
        row.light = int(std::lround((1 - dark) * 32767));
        return row;
    }

    Vhs filter;
    Transform place;
    PixelRect bounds;
    std::int64_t red; ///< how far red bleeds, in 1/256 pixel
    int margin;
    DrawTile picture;
    ChangeRow paleRow = pale().row({}, {});
    std::vector<std::uint32_t> grains;
    std::vector<std::uint8_t> scratch;
};

}

std::optional<Vhs> Vhs::clamped(const Rect&) const {
    if (!std::isfinite(bleed) || !std::isfinite(lines)) return std::nullopt;
    return Vhs{std::clamp(bleed, 0.0, 256.0), std::remainder(lines, linePeriod), noise};
}

DrawTile Vhs::draw(const PictureSource& source, const Transform& place, const PixelRect& bounds) const {
    auto drawing = std::make_shared<VhsDrawing>(*this, source, place, bounds);
    return [drawing](const Tile& tile) { drawing->fill(tile); };
}

}
