#include "platform/image/Sampler.h"

#include "platform/image/ColourSpace.h"

#include <algorithm>

namespace murbo {
namespace {

using Kernels::Line;
using Kernels::Taps;

/// Rows that are drawn on their side at a time: enough to fill vectors, few enough for a near cache.
constexpr int turnedRows = 64;

Kernels::Depth depthOf(const Frame& frame) {
    if (frame.depth <= 8) return {1, 7, 0};
    if (frame.highBits || frame.depth >= 16) return {2, 0, 1};
    return {2, 15 - frame.depth, 0};
}

/// A line along one axis of a plane that has a sample for every `step` pixels, the first `shift` to the right
/// of where it would lie if samples stood in the middle of theirs.
Line subsampled(double offset, double slope, int step, double shift) {
    return Line::through(offset / step + shift, slope / step);
}

int rowsOf(const Taps& taps) {
    int most = 0;
    for (const auto& output : taps.outputs) most = std::max(most, output.count);
    return most;
}

}

/// Both axes of the way from the canvas to a plane, in the plane's own sense.
struct Sampler::Axes {
    Line across;
    Line down;
    PixelRect bounds; ///< of the canvas, its axes changed over where the picture lies on its side
    PixelRect limits;

    static Axes of(const Transform& way, bool swapped, const PixelRect& bounds, const PixelRect& limits,
                   int stepX = 1, int stepY = 1, double shiftX = 0, double shiftY = 0) {
        Axes axes;
        axes.across = subsampled(way.tx, swapped ? way.c : way.a, stepX, shiftX);
        axes.down = subsampled(way.ty, swapped ? way.b : way.d, stepY, shiftY);
        axes.bounds = swapped ? PixelRect{bounds.top, bounds.left, bounds.bottom, bounds.right} : bounds;
        axes.limits = {limits.left / stepX, limits.top / stepY, (limits.right + stepX - 1) / stepX,
                       (limits.bottom + stepY - 1) / stepY};
        return axes;
    }
};

Sampler::Sampler(const Raster& raster, const Transform& toGrid, const PixelRect& bounds,
                 const PixelRect& limits)
    : swapped(toGrid.a == 0 && toGrid.d == 0), opaque(raster.opaque), bitmap(raster.bitmap) {
    const auto* origin = raster.bitmap.row(-raster.area.top) - std::ptrdiff_t(raster.area.left) * 4;
    addPlane(origin, raster.bitmap.stride(), 4, {}, Axes::of(toGrid, swapped, bounds, limits));
}

Sampler::Sampler(const Frame& frame, const Transform& toStored, const PixelRect& bounds,
                 const PixelRect& limits)
    : swapped(toStored.a == 0 && toStored.d == 0), opaque(!frame.hasAlpha), keeper(frame.keeper) {
    const auto depth = depthOf(frame);
    const auto add = [&](int index, int values, const Axes& axes) {
        addPlane(frame.planes[index], frame.strides[index], values, depth, axes);
    };
    const auto whole = Axes::of(toStored, swapped, bounds, limits);
    if (frame.layout == Frame::Layout::bgra) {
        add(0, 4, whole);
        return;
    }
    cube = ColourSpace::cube(frame);
    matrix = cube ? ColourSpace::toCube(frame) : ColourSpace::toPixels(frame);
    add(0, 1, whole);
    if (frame.layout != Frame::Layout::grey) {
        const int stepX = frame.layout == Frame::Layout::chroma444 ? 1 : 2;
        const int stepY = frame.layout == Frame::Layout::chroma420 ? 2 : 1;
        const bool atLeft = stepX == 2 && frame.chromaSite != Frame::ChromaSite::centre;
        const bool atTop = stepY == 2 && frame.chromaSite == Frame::ChromaSite::topLeft;
        const auto chroma =
            Axes::of(toStored, swapped, bounds, limits, stepX, stepY, atLeft ? 0.25 : 0, atTop ? 0.25 : 0);
        add(1, frame.interleavedChroma ? 2 : 1, chroma);
        if (!frame.interleavedChroma) add(2, 1, chroma);
    }
    alpha = frame.hasAlpha && frame.planes[3];
    if (alpha) add(3, 1, whole);
}

void Sampler::addPlane(const std::uint8_t* samples, std::ptrdiff_t stride, int values, Kernels::Depth depth,
                       const Axes& axes) {
    Plane plane{samples,
                stride,
                values,
                depth,
                Taps::along(axes.across, axes.bounds.left, axes.bounds.right, axes.limits.left,
                            axes.limits.right, false),
                Taps::along(axes.down, axes.bounds.top, axes.bounds.bottom, axes.limits.top,
                            axes.limits.bottom, true)};
    const std::size_t wide = std::size_t(plane.across.high - plane.across.low) * values + Kernels::slack;
    if (blended.size() < wide) blended.resize(wide);
    if (values == 2 && pairs.size() < wide) pairs.resize(wide);
    rows.resize(std::max<std::size_t>(rows.size(), rowsOf(plane.down)));
    for (auto& channel : channels)
        channel.resize(std::size_t(axes.bounds.width()) * (values == 4 ? 4 : 1) + Kernels::slack);
    planes.push_back(std::move(plane));
}

void Sampler::Plane::row(int y, int from, int to, Sampler& sampler, std::int16_t* out) const {
    const auto& first = across.outputs[from - across.from];
    const auto& last = across.outputs[to - 1 - across.from];
    const int low = std::min(first.first, last.first);
    const int high = std::max(first.first + first.count, last.first + last.count);
    const auto& source = down.outputs[y - down.from];
    for (int tap = 0; tap < source.count; ++tap)
        sampler.rows[tap] =
            samples + (source.first + tap) * stride + std::ptrdiff_t(low) * values * depth.bytes;
    auto* blended = sampler.blended.data();
    Kernels::blendRows(sampler.rows.data(), &down.weights[source.weights], source.count, source.base, depth,
                       (high - low) * values, blended + (low - across.low) * values);
    if (values == 4) return Kernels::resamplePixels(across, from, to, blended, out);
    if (values == 1) return Kernels::resampleRow(across, from, to, blended, out);
    const int count = across.high - across.low;
    auto* second = sampler.pairs.data() + count;
    Kernels::splitPairs(blended, count, sampler.pairs.data(), second);
    Kernels::resampleRow(across, from, to, sampler.pairs.data(), out);
    Kernels::resampleRow(across, from, to, second, sampler.channels[2].data());
}

void Sampler::row(int y, int from, int to, std::uint8_t* out) {
    int channel = 0;
    for (const auto& plane : planes) {
        plane.row(y, from, to, *this, channels[channel].data());
        channel += plane.values;
    }
    const int count = to - from;
    if (planes[0].values == 4) return Kernels::packPixels(channels[0].data(), count, opaque, out);
    colour(count, out);
    if (alpha) Kernels::multiplyAlpha(channels[channel - 1].data(), count, out);
}

void Sampler::colour(int count, std::uint8_t* out) {
    const bool grey = planes.size() == (alpha ? 2 : 1);
    const auto* y = channels[0].data();
    const auto* u = grey ? y : channels[1].data();
    const auto* v = grey ? y : channels[2].data();
    if (cube) return Kernels::colourRow(y, u, v, count, matrix, cube, out);
    Kernels::colourRow(y, u, v, count, matrix, out);
}

void Sampler::fill(const Tile& tile) {
    if (swapped) return fillTurned(tile);
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        row(y, tile.area.left, tile.area.right, tile.at(tile.area.left, y));
}

/// Draws the picture as it lies, some of the canvas' rows at a time, and turns that over.
void Sampler::fillTurned(const Tile& tile) {
    const int wide = std::min(turnedRows, tile.area.height());
    const std::ptrdiff_t stride = wide * 4;
    const auto block = std::make_unique_for_overwrite<std::uint8_t[]>(stride * tile.area.width());
    for (int top = tile.area.top; top < tile.area.bottom; top += wide) {
        const int bottom = std::min(top + wide, tile.area.bottom);
        for (int x = tile.area.left; x < tile.area.right; ++x)
            row(x, top, bottom, block.get() + (x - tile.area.left) * stride);
        Kernels::transpose(block.get(), stride, bottom - top, tile.area.width(), tile.at(tile.area.left, top),
                           tile.stride);
    }
}

}
