#include "platform/image/draw/DirectionalBlur.h"

#include "platform/image/draw/AxisSampler.h"
#include "platform/image/kernels/Kernels.h"

#include <cmath>

namespace murbo::DirectionalBlur {
namespace {

/// A long blur needs no fine grid along it: half its length is left that many pixels.
constexpr double reachKept = 8;
/// A slanted blur is turned there and back, which costs most; from this reach on it is drawn at half size
/// across too.
constexpr double coarseSlant = 40;
/// Past this length, in pixels, a zoom blur is drawn at half size: what that would lose is blurred already.
constexpr double fineZoom = 10;
/// Copies of a zoom blur lie no further apart than this, in pixels.
constexpr double zoomSpacing = 1.5;

Transform scaledFrom(Point centre, double scale) {
    return Transform().translated(-centre.x, -centre.y).scaled(scale, scale).translated(centre.x, centre.y);
}

/// What of the grid can be other than clear, of what is wanted. Whoever looks between its pixels sees those
/// that only touch the picture, too.
PixelRect needed(const Rect& wanted, const Rect& extent, int margin) {
    const auto seen = PixelRect::touching(extent).grown(2, 2).intersection(PixelRect::touching(wanted));
    return seen.empty() ? PixelRect{} : seen.grown(margin, margin);
}

/// The mean of a raster's pixels and of those further in and further out.
void spread(const Raster& from, const Transform& outward, Raster& to) {
    const auto& area = to.area;
    AxisSampler out(from, outward, area, area);
    AxisSampler in(from, outward.inverse(), area, area);
    std::vector<std::uint8_t> row(std::size_t(area.width()) * 4);
    for (int y = area.top; y < area.bottom; ++y) {
        const PixelRect line{area.left, y, area.right, y + 1};
        auto* mean = to.tile().at(area.left, y);
        out.fill(to.tile().part(line));
        in.fill({row.data(), std::ptrdiff_t(row.size()), line});
        Kernels::meanOfThree(row.data(), from.bitmap.row(y - area.top), area.width(), mean);
    }
}

}

Smeared motion(const ImageNode::MotionBlur& blur, const PictureSource& source, const Transform& place,
               const PixelRect& bounds) {
    const Transform linear{place.a, place.b, place.c, place.d, 0, 0};
    const Point reach = linear.apply(blur.reach);
    const double length = std::hypot(reach.x, reach.y);
    // On a grid turned so that the line lies level, and drawn together along it, the smear is a mean along
    // rows.
    const double degrees = std::atan2(reach.y, reach.x) * 180 / 3.14159265358979323846;
    const double shrink = std::max(std::floor(length / reachKept), 1.0);
    const bool slanted = std::min(std::abs(reach.x), std::abs(reach.y)) > 1e-6 * length;
    const double across = slanted && length >= coarseSlant ? 2 : 1;
    const Transform toGrid = Transform().rotated(-degrees).scaled(1 / shrink, 1 / across);
    const double kept = length / shrink;
    const int margin = int(std::ceil(kept)) + 2;
    const Transform placed = place.then(toGrid);
    Rect extent = placed.apply(blur.of->extent);
    if (!extent.isEverything()) extent = {extent.x - kept, extent.y, extent.width + 2 * kept, extent.height};
    const PixelRect area = needed(toGrid.apply(bounds.rect()), extent, margin);
    Raster sharp = source.raster(placed, area);
    if (sharp.bitmap.empty()) return {};
    Raster smeared = Raster::of(area, sharp.opaque);
    for (int y = 0; y < area.height(); ++y)
        Kernels::smearRow(sharp.bitmap.row(y), area.width(), std::max(int(std::lround(kept * 64)), 32),
                          smeared.bitmap.row(y));
    return {std::move(smeared), toGrid};
}

Smeared zoom(const ImageNode::ZoomBlur& blur, const PictureSource& source, const Transform& place,
             const PixelRect& bounds) {
    const auto body = place.apply(blur.of->body);
    const double longest = blur.spread * 0.5 * std::hypot(body.width, body.height);
    const double shrink = longest < fineZoom ? 1 : 2;
    const Transform toGrid = Transform().scaled(1 / shrink, 1 / shrink);
    const Transform placed = place.then(toGrid);
    const Point centre = placed.apply(blur.centre);
    // Three times as many copies with each pass: means of means, each pass three times as far apart as the
    // last.
    const double copies = longest / shrink / zoomSpacing;
    const int passes = std::clamp(int(std::ceil(std::log(copies) / std::log(3))), 1, 8);
    const Transform outward = scaledFrom(centre, std::exp(blur.spread / 2));
    const auto reached = [&](const Rect& rect) {
        return rect.isEverything() ? rect
                                   : rect.united(outward.apply(rect)).united(outward.inverse().apply(rect));
    };
    const PixelRect area =
        needed(reached(toGrid.apply(bounds.rect())), reached(placed.apply(blur.of->extent)), 2 * passes + 2);
    Raster now = source.raster(placed, area);
    if (now.bitmap.empty()) return {};
    Raster next = Raster::of(area, now.opaque);
    for (int pass = 0; pass < passes; ++pass) {
        const double apart = blur.spread * std::pow(3.0, pass - passes);
        spread(now, scaledFrom(centre, std::exp(apart)), next);
        std::swap(now, next);
    }
    return {std::move(now), toGrid};
}

}
