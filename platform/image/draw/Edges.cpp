#include "platform/image/draw/Edges.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

constexpr int bits = 24;
constexpr std::int64_t pixel = std::int64_t(1) << bits;
constexpr std::int64_t half = pixel / 2;
/// Within a five-hundredth of a pixel an edge counts as lying on the grid.
constexpr std::int64_t inside = half - pixel / 512;
constexpr std::int64_t outside = -half + pixel / 512;

std::int64_t fixed(double value) {
    constexpr double farthest = double(std::int64_t(1) << 34);
    return std::llround(std::clamp(value, -farthest, farthest) * double(pixel));
}

std::int64_t floorDivided(std::int64_t value, std::int64_t by) {
    return value / by - (value % by != 0 && (value < 0) != (by < 0));
}

std::int64_t ceilDivided(std::int64_t value, std::int64_t by) {
    return -floorDivided(-value, by);
}

/// The share of a pixel between two opposite sides.
std::int64_t between(std::int64_t one, std::int64_t other) {
    const auto share = [](std::int64_t distance) {
        return std::clamp<std::int64_t>(distance + half, 0, pixel);
    };
    return std::max<std::int64_t>(share(one) + share(other) - pixel, 0);
}

}

Edges::Edges(const Rect& rect, const Transform& transform, bool bare)
    : upright(transform.keepsAxes()), nothingBeyond(bare) {
    const Transform back = transform.inverse();
    sides[0] = side(back, true, rect.x, true);
    sides[1] = side(back, true, rect.right(), false);
    sides[2] = side(back, false, rect.y, true);
    sides[3] = side(back, false, rect.bottom(), false);
}

Edges::Side Edges::side(const Transform& back, bool across, double edge, bool before) {
    const double x = across ? back.a : back.b;
    const double y = across ? back.c : back.d;
    const double start = (across ? back.tx : back.ty) + 0.5 * (x + y) - edge;
    const double length = std::hypot(x, y) * (before ? 1 : -1);
    return {fixed(start / length), fixed(x / length), fixed(y / length)};
}

/// The part of `range` where the side's distance is at min `min`.
Edges::ColumnRange Edges::above(const Side& side, int row, std::int64_t min, ColumnRange range) {
    const std::int64_t missing = min - side.at(0, row);
    const std::int64_t low = range.from;
    const std::int64_t high = range.to;
    if (side.x > 0) return {int(std::clamp(ceilDivided(missing, side.x), low, high)), range.to};
    if (side.x < 0) return {range.from, int(std::clamp(floorDivided(missing, side.x) + 1, low, high))};
    return missing <= 0 ? range : ColumnRange{range.from, range.from};
}

Edges::ColumnRange Edges::reaching(int row, std::int64_t min, ColumnRange range) const {
    for (const auto& each : sides) {
        const ColumnRange part = above(each, row, min, range);
        range = {std::max(range.from, part.from),
                 std::max(std::max(range.from, part.from), std::min(range.to, part.to))};
    }
    return range;
}

bool Edges::full(int column, int row) const {
    return std::all_of(sides, sides + 4, [&](const Side& each) { return each.at(column, row) >= inside; });
}

int Edges::coverage(int column, int row) const {
    const auto across = between(sides[0].at(column, row), sides[1].at(column, row)) >> 12;
    const auto down = between(sides[2].at(column, row), sides[3].at(column, row)) >> 12;
    return int((across * down * 255 + half) >> bits);
}

void Edges::cover(int y, int from, int to, std::uint8_t* pixels) const {
    if (nothingBeyond) return;
    const ColumnRange some = reaching(y, outside, {from, to});
    const ColumnRange all = reaching(y, inside, some);
    const auto at = [&](int x) { return pixels + std::ptrdiff_t(x - from) * 4; };
    Kernels::fill(0, some.from - from, at(from));
    for (int x = some.from; x < all.from; ++x) Kernels::fade(coverage(x, y), 1, at(x));
    for (int x = std::max(all.to, all.from); x < some.to; ++x) Kernels::fade(coverage(x, y), 1, at(x));
    Kernels::fill(0, to - some.to, at(some.to));
}

PixelRect Edges::reached(const PixelRect& area) const {
    ColumnRange widest{area.right, area.left};
    for (int y = area.top; y < area.bottom; ++y) {
        const ColumnRange range = reaching(y, outside, {area.left, area.right});
        if (range.from < range.to)
            widest = {std::min(widest.from, range.from), std::max(widest.to, range.to)};
    }
    return widest.from < widest.to ? PixelRect{widest.from, area.top, widest.to, area.bottom} : PixelRect{};
}

PixelRect Edges::solid(const PixelRect& bounds) const {
    if (bounds.empty()) return {};
    if (!upright) {
        const bool all = full(bounds.left, bounds.top) && full(bounds.right - 1, bounds.top) &&
                         full(bounds.left, bounds.bottom - 1) && full(bounds.right - 1, bounds.bottom - 1);
        return all ? bounds : PixelRect{};
    }
    PixelRect solid = bounds;
    for (const auto& each : sides) {
        // Upright: a side looks along one axis only; the other is asked with the axes changed over.
        const Side turned{each.start, each.y, each.x};
        const ColumnRange columns = each.x != 0 ? above(each, 0, inside, {solid.left, solid.right})
                                                : ColumnRange{solid.left, solid.right};
        const ColumnRange rows = each.x == 0 ? above(turned, 0, inside, {solid.top, solid.bottom})
                                             : ColumnRange{solid.top, solid.bottom};
        solid = {columns.from, rows.from, columns.to, rows.to};
    }
    return solid.empty() ? PixelRect{} : solid;
}

}
