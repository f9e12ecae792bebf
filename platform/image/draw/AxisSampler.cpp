#include "platform/image/draw/AxisSampler.h"

#include "platform/image/ColourSpace.h"

#include <algorithm>

namespace murbo {
namespace {

using Kernels::Line;
using Kernels::Taps;

/// Rows that are drawn on their side at a time: enough to fill vectors, few enough for a near cache.
constexpr int turnedRows = 64;

Kernels::SampleDepth depthOf(const Frame& frame) {
    if (frame.depth <= 8) return {1, 7, 0};
    if (frame.highBits || frame.depth >= 16) return {2, 0, 1};
    return {2, 15 - frame.depth, 0};
}

bool liesOnSide(const Transform& way) {
    return way.a == 0 && way.d == 0;
}

/// A line along one axis of a plane that has a sample for every `step` pixels, the first `shift` to the right
/// of where it would lie if samples stood in the middle of theirs.
Line subsampled(double offset, double slope, int step, double shift) {
    return Line::through(offset / step + shift, slope / step);
}

/// A row is sampled from here on, a whole number of what kernels make at once before where it is asked.
constexpr int together = 8;

PixelRect turnedOver(const PixelRect& rect) {
    return {rect.top, rect.left, rect.bottom, rect.right};
}

}

struct AxisSampler::Axes {
    Kernels::Columns across;
    Taps down;

    /// `way` leads from the canvas to stored pixels; the plane has a sample for every `stepX` by `stepY` of
    /// them.
    static std::shared_ptr<const Axes> of(const Transform& way, int values, const PixelRect& bounds,
                                          const PixelRect& limits, int stepX = 1, int stepY = 1,
                                          double shiftX = 0, double shiftY = 0) {
        const bool swapped = liesOnSide(way);
        const PixelRect area = swapped ? turnedOver(bounds) : bounds;
        const Line across = subsampled(way.tx, swapped ? way.c : way.a, stepX, shiftX);
        const Line down = subsampled(way.ty, swapped ? way.b : way.d, stepY, shiftY);
        return std::make_shared<const Axes>(
            Axes{{across, area.left, area.right, limits.left / stepX, (limits.right + stepX - 1) / stepX,
                  values == 4 ? 4 : 1},
                 Taps::along(down, area.top, area.bottom, limits.top / stepY,
                             (limits.bottom + stepY - 1) / stepY, Taps::Sum::differences)});
    }
};

AxisSampler::AxisSampler(const Raster& raster, const Transform& toGrid, const PixelRect& bounds,
                         const PixelRect& limits)
    : swapped(liesOnSide(toGrid)), opaque(raster.opaque), bitmap(raster.bitmap) {
    const auto* origin = raster.bitmap.row(-raster.area.top) - std::ptrdiff_t(raster.area.left) * 4;
    addPlane(origin, raster.bitmap.stride(), 4, {}, Axes::of(toGrid, 4, bounds, limits));
}

AxisSampler::AxisSampler(const Frame& frame, const Transform& toStored, const PixelRect& bounds,
                         const PixelRect& limits)
    : swapped(liesOnSide(toStored)), opaque(!frame.hasAlpha), keeper(frame.keeper) {
    const auto add = [&](int index, int values, std::shared_ptr<const Axes> axes) {
        addPlane(frame.planes[index], frame.strides[index], values, depthOf(frame), std::move(axes));
    };
    if (frame.layout == Frame::Layout::bgra) {
        add(0, 4, Axes::of(toStored, 4, bounds, limits));
        return;
    }
    cube = ColourSpace::cube(frame);
    matrix = cube ? ColourSpace::toCube(frame) : ColourSpace::toPixels(frame);
    const auto whole = Axes::of(toStored, 1, bounds, limits);
    add(0, 1, whole);
    if (frame.layout != Frame::Layout::grey) {
        const int stepX = frame.layout == Frame::Layout::chroma444 ? 1 : 2;
        const int stepY = frame.layout == Frame::Layout::chroma420 ? 2 : 1;
        const bool atLeft = stepX == 2 && frame.chromaSite != Frame::ChromaSite::centre;
        const bool atTop = stepY == 2 && frame.chromaSite == Frame::ChromaSite::topLeft;
        const auto chroma =
            Axes::of(toStored, 1, bounds, limits, stepX, stepY, atLeft ? 0.25 : 0, atTop ? 0.25 : 0);
        add(1, frame.interleavedChroma ? 2 : 1, chroma);
        if (!frame.interleavedChroma) add(2, 1, chroma);
    }
    alpha = frame.hasAlpha && frame.planes[3];
    if (alpha) add(3, 1, whole);
}

void AxisSampler::addPlane(const std::uint8_t* samples, std::ptrdiff_t stride, int values,
                           Kernels::SampleDepth depth, std::shared_ptr<const Axes> axes) {
    const auto grow = [](auto& buffer, std::size_t size) {
        if (buffer.size() < size + Kernels::slack) buffer.resize(size + Kernels::slack);
    };
    const auto& across = axes->across;
    const std::size_t wide = across.taps.high - across.taps.low;
    grow(blended, wide * values);
    if (values == 2) grow(pairs, wide * 2);
    grow(rows, axes->down.maxCount);
    for (auto& channel : channels) grow(channel, across.taps.outputs.size() * across.values + together);
    planes.push_back({samples, stride, values, depth, std::move(axes)});
}

/// Samples a row of one plane into its channels.
void AxisSampler::samplePlane(const SampledPlane& plane, int y, int from, int to, int channel) {
    const auto& columns = plane.axes->across;
    const auto& across = columns.taps;
    const auto& down = plane.axes->down;
    const auto& first = across.outputs[from - across.from];
    const auto& last = across.outputs[to - 1 - across.from];
    const int low = std::min(first.first, last.first);
    const int high = std::max(first.first + first.count, last.first + last.count);
    const auto& source = down.outputs[y - down.from];
    for (int tap = 0; tap < source.count; ++tap)
        rows[tap] = plane.samples + (source.first + tap) * plane.stride +
                    std::ptrdiff_t(low) * plane.values * plane.depth.bytes;
    Kernels::blendRows(rows.data(), &down.weights[source.weights], source.count, plane.depth,
                       (high - low) * plane.values,
                       blended.data() + std::ptrdiff_t(low - across.low) * plane.values);
    auto* out = channels[channel].data();
    if (plane.values != 2) return Kernels::resampleRow(columns, from, to, blended.data(), out);
    const int count = across.high - across.low;
    Kernels::splitPairs(blended.data(), count, pairs.data(), pairs.data() + count);
    Kernels::resampleRow(columns, from, to, pairs.data(), out);
    Kernels::resampleRow(columns, from, to, pairs.data() + count, channels[channel + 1].data());
}

void AxisSampler::row(int y, int from, int to, std::uint8_t* out) {
    const int skipped = (from - planes[0].axes->across.taps.from) % together;
    int channel = 0;
    for (const auto& plane : planes) {
        samplePlane(plane, y, from - skipped, to, channel);
        channel += plane.values;
    }
    const int count = to - from;
    if (planes[0].values == 4)
        return Kernels::packPixels(channels[0].data() + skipped * 4, count, opaque, out);
    colour(skipped, count, out);
    if (alpha) Kernels::multiplyAlpha(channels[channel - 1].data() + skipped, count, out);
}

void AxisSampler::colour(int skipped, int count, std::uint8_t* out) {
    const bool grey = planes.size() == (alpha ? 2 : 1);
    const auto* y = channels[0].data() + skipped;
    const auto* u = grey ? y : channels[1].data() + skipped;
    const auto* v = grey ? y : channels[2].data() + skipped;
    if (cube) return Kernels::colourRow(y, u, v, count, matrix, cube, out);
    Kernels::colourRow(y, u, v, count, matrix, out);
}

void AxisSampler::fill(const Tile& tile) {
    if (swapped) return fillTurned(tile);
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        row(y, tile.area.left, tile.area.right, tile.at(tile.area.left, y));
}

/// Draws the picture as it lies, some of the canvas' rows at a time, and turns that over.
void AxisSampler::fillTurned(const Tile& tile) {
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
