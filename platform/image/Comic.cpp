#include "platform/image/FilterDrawings.h"
#include "platform/image/Gauss.h"
#include "platform/image/Rasterised.h"
#include "platform/image/kernels/FilterKernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::FilterDrawings {
namespace {

using Node = Image::Node;

constexpr double pi = 3.14159265358979323846;

/// All lengths in the picture's own pixels.
constexpr double evenSigma = 7;     ///< colours are evened out over
constexpr double fineSigma = 2.0;   ///< where it is darker over this
constexpr double coarseSigma = 6.0; ///< than over this there is ink
constexpr double dotPeriod = 12;    ///< dots on a lattice at 45 degrees, this far apart along a row
constexpr int tolerance = 3;        ///< doublings of a difference until it counts as an edge

/// Tones a picture is printed in; between two of them it changes over a part of the way only.
constexpr int tones = 5;
constexpr double softness = 0.35;
/// How far dots move a tone, in levels.
constexpr double dotLevels = 10;

std::vector<std::uint32_t> toneTable() {
    std::vector<std::uint32_t> table;
    for (int at = 0; at < 256; ++at) {
        const double light = at / 255.0;
        const double place = light * (0.72 + 0.28 * light) * (tones - 1);
        const double below = std::floor(place);
        const double step = std::clamp((place - below - 0.5) / softness + 0.5, 0.0, 1.0);
        const double tone = (below + step * step * (3 - 2 * step)) / (tones - 1);
        table.push_back(std::uint32_t(std::lround(tone * (1.25 - 0.25 * tone) * 247 + 8)));
    }
    return table;
}

/// The dots' share of each pixel's place along an axis, in 1/2^15.
std::vector<std::int16_t> screen(double start, double scale, int from, int to, double strength) {
    std::vector<std::int16_t> shares;
    for (int at = from; at < to; ++at)
        shares.push_back(std::int16_t(
            std::lround(32767 * strength * std::cos(2 * pi * (at + 0.5 - start) / (dotPeriod * scale)))));
    return shares;
}

/// Evens a raster out along one axis after the other; smaller by `reach` at each side.
Raster evened(const Raster& raster, const Gauss& gauss) {
    const int reach = gauss.reach;
    const PixelRect area = raster.area.grown(-reach, -reach);
    Raster result = Raster::of(area, true);
    const int values = area.width() * 4;
    std::vector<std::int16_t> across(std::size_t(raster.area.height()) * values);
    std::vector<std::int16_t> sum(values);
    std::vector<const std::uint8_t*> rows;
    for (int y = 0; y < raster.area.height(); ++y) {
        const auto* middle = raster.bitmap.row(y) + reach * 4;
        rows.assign(1, middle);
        for (int away = 1; away <= reach; ++away)
            rows.push_back(middle - away * 4), rows.push_back(middle + away * 4);
        Kernels::evenOutRows(rows.data(), gauss.weights.data(), int(rows.size()), {1, 7, 0}, tolerance,
                             values, &across[std::size_t(y) * values]);
    }
    const auto at = [&](int y) {
        return reinterpret_cast<const std::uint8_t*>(&across[std::size_t(y) * values]);
    };
    for (int y = 0; y < area.height(); ++y) {
        rows.assign(1, at(y + reach));
        for (int away = 1; away <= reach; ++away)
            rows.push_back(at(y + reach - away)), rows.push_back(at(y + reach + away));
        Kernels::evenOutRows(rows.data(), gauss.weights.data(), int(rows.size()), {2, 0, 0}, tolerance,
                             values, sum.data());
        Kernels::packPixels(sum.data(), area.width(), true, result.bitmap.row(y));
    }
    return result;
}

/// A plane of 15-bit values.
struct Plane {
    PixelRect area;
    std::vector<std::int16_t> values;
    explicit Plane(const PixelRect& whole) : area(whole), values(std::size_t(area.area())) {}
    std::int16_t* row(int y) { return &values[std::size_t(y - area.top) * area.width()]; }
};

Plane blurred(Plane& plane, const Gauss& gauss) {
    const int reach = gauss.reach;
    Plane across({plane.area.left + reach, plane.area.top, plane.area.right - reach, plane.area.bottom});
    Plane result(plane.area.grown(-reach, -reach));
    std::vector<const std::uint8_t*> rows;
    const auto blend = [&](auto at, std::int16_t* out) {
        rows.assign(1, at(0));
        for (int away = 1; away <= reach; ++away) rows.push_back(at(-away)), rows.push_back(at(away));
        Kernels::blendRows(rows.data(), gauss.weights.data(), int(rows.size()), {2, 0, 0},
                           result.area.width(), out);
    };
    for (int y = plane.area.top; y < plane.area.bottom; ++y)
        blend([&](int away) { return reinterpret_cast<const std::uint8_t*>(plane.row(y) + reach + away); },
              across.row(y));
    for (int y = result.area.top; y < result.area.bottom; ++y)
        blend([&](int away) { return reinterpret_cast<const std::uint8_t*>(across.row(y + away)); },
              result.row(y));
    return result;
}

}

Layer::Draw draw(const Inked&, const Node& of, const Transform& place, const PixelRect& bounds, int depth) {
    const double scale = std::sqrt(place.a * place.d);
    const double shrink = std::exp2(std::max(std::round(std::log2(scale) + 0.9), 0.0));
    const double grid = scale / shrink;
    const Gauss even(evenSigma * grid / 2);
    const Gauss fine(fineSigma * grid);
    const Gauss coarse(coarseSigma * grid);
    const auto toGrid = Transform().scaled(1 / shrink, 1 / shrink);
    const auto area = PixelRect::touching(toGrid.apply(bounds.rect())).grown(2, 2);
    const int margin = std::max(2 * even.reach, coarse.reach);
    const auto sharp = rasterised(of, place.then(toGrid), area.grown(margin, margin), depth);
    if (sharp.bitmap.empty()) return nothing();

    Raster flat = evened(evened(sharp, even), even);
    Plane light(sharp.area);
    for (int y = sharp.area.top; y < sharp.area.bottom; ++y)
        Kernels::brightnessRow(sharp.bitmap.row(y - sharp.area.top), sharp.area.width(), light.row(y));
    Plane fineLight = blurred(light, fine);
    Plane coarseLight = blurred(light, coarse);
    auto printed = Raster::of(area, false);
    for (int y = area.top; y < area.bottom; ++y) {
        auto* row = printed.tile().at(area.left, y);
        std::memcpy(row, flat.tile().at(area.left, y), std::size_t(area.width()) * 4);
        Kernels::inkRow(fineLight.row(y) + (area.left - fineLight.area.left),
                        coarseLight.row(y) + (area.left - coarseLight.area.left), 16 * 8, area.width(), row);
    }
    auto sampler = std::make_shared<Sampler>(printed, toGrid, bounds, area);
    const double strength = std::clamp(dotPeriod * scale / 4 - 0.5, 0.0, 1.0) * dotLevels / 16;
    auto across = std::make_shared<std::vector<std::int16_t>>(
        screen(place.tx, place.a, bounds.left, bounds.right, strength));
    auto down =
        std::make_shared<std::vector<std::int16_t>>(screen(place.ty, place.d, bounds.top, bounds.bottom, 1));
    auto table = std::make_shared<std::vector<std::uint32_t>>(toneTable());
    return [=](const Tile& tile) {
        inStrips(tile, [&](const Tile& strip) {
            sampler->fill(strip);
            const auto& at = strip.area;
            for (int y = at.top; y < at.bottom; ++y)
                Kernels::printRow({across->data() + (at.left - bounds.left), (*down)[y - bounds.top],
                                   table->data(), 22, 128 + 25, 6},
                                  at.width(), strip.at(at.left, y));
        });
    };
}

}
