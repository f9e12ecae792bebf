#include "platform/image/draw/RoundedRectangleSampler.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace murbo {
namespace {

/// Pixels of a row that are asked one by one.
constexpr int few = 4;

/// How much of a pixel lies on the inner side of an edge, `inward` pixels from its middle.
double share(double inward) {
    return std::clamp(inward + 0.5, 0.0, 1.0);
}

std::uint32_t covered(std::uint32_t pixel, int coverage) {
    std::uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8)
        result |= ((pixel >> shift & 255) * std::uint32_t(coverage) + 127) / 255 << shift;
    return result;
}

}

RoundedRectangleSampler::RoundedRectangleSampler(const ImageNode::RoundedRectangle& shape,
                                                 const Transform& place) {
    const Point middle = shape.rect.middle();
    back = place.inverse().translated(-middle.x, -middle.y);
    radius = shape.radius;
    core = {shape.rect.width / 2 - radius, shape.rect.height / 2 - radius};
    reach = shape.line > 0 ? shape.line / 2 : -1;
    thickness = std::min(shape.rect.width, shape.rect.height);
    margin = 0.5 * std::sqrt(back.a * back.a + back.b * back.b + back.c * back.c + back.d * back.d);
    step = std::sqrt(back.a * back.a + back.b * back.b);
    pixel = shape.colour.premultiplied();
}

Point RoundedRectangleSampler::local(double x, double y) const {
    return back.apply(Point{x + 0.5, y + 0.5});
}

RoundedRectangleSampler::Distance RoundedRectangleSampler::distance(Point from) const {
    const Point beyond{std::abs(from.x) - core.x, std::abs(from.y) - core.y};
    const Point side{from.x < 0 ? -1.0 : 1.0, from.y < 0 ? -1.0 : 1.0};
    if (beyond.x > 0 && beyond.y > 0) {
        const double length = std::sqrt(beyond.x * beyond.x + beyond.y * beyond.y);
        return {length - radius, {side.x * beyond.x / length, side.y * beyond.y / length}};
    }
    if (beyond.x > beyond.y) return {beyond.x - radius, {side.x, 0}};
    return {beyond.y - radius, {0, side.y}};
}

int RoundedRectangleSampler::coverage(int x, int y) const {
    const auto [length, way] = distance(local(x, y));
    const double across = way.x * back.a + way.y * back.b;
    const double down = way.x * back.c + way.y * back.d;
    const double scale = std::sqrt(across * across + down * down); // local lengths a pixel
    const double outward = length / scale;
    const double inside = reach >= 0
                              ? share(reach / scale - outward) - share(-reach / scale - outward)
                              : std::max(share(-outward) + share(thickness / scale + outward) - 1, 0.0);
    return int(std::lround(inside * 255));
}

/// Halves what the edge may cross, until a stretch lies on one side of it or few pixels are left.
void RoundedRectangleSampler::fill(int y, int from, int to, std::uint8_t* pixels) const {
    const int count = to - from;
    const double length = distance(local((from + to - 1) * 0.5, y)).length;
    const double outward = reach >= 0 ? std::abs(length) - reach : length;
    const double along = (count - 1) * 0.5 * step + margin;
    if (outward >= along) return Kernels::fill(0, count, pixels);
    if (outward <= -along) return Kernels::fill(pixel, count, pixels);
    if (count > few) {
        const int half = from + count / 2;
        fill(y, from, half, pixels);
        return fill(y, half, to, pixels + std::ptrdiff_t(half - from) * 4);
    }
    for (int x = from; x < to; ++x, pixels += 4) {
        const auto found = covered(pixel, coverage(x, y));
        std::memcpy(pixels, &found, 4);
    }
}

void RoundedRectangleSampler::fill(const Tile& tile) const {
    for (int y = tile.area.top; y < tile.area.bottom; ++y)
        fill(y, tile.area.left, tile.area.right, tile.at(tile.area.left, y));
}

}
