#include "platform/image/draw/AffineSampler.h"
#include "platform/image/draw/AxisSampler.h"
#include "platform/image/draw/Flattening.h"
#include "platform/image/draw/GradientSampler.h"
#include "platform/image/draw/Painter.h"
#include "platform/image/draw/PixelGrid.h"
#include "platform/image/draw/RoundedRectangleSampler.h"
#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

/// Pixels at an angle may lie this much further than one apart before they count as skipped.
constexpr double slack = 0.35;
/// Pixels of the canvas beside one that may be averaged into it.
constexpr int averaged = 2;

/// Whether a way from the canvas to a picture's pixels passes some of them over.
bool skips(const Transform& way) {
    return std::max(std::hypot(way.a, way.b), std::hypot(way.c, way.d)) > 1 + slack;
}

PixelRect shifted(const PixelRect& rect, const Transform& shift) {
    const int x = int(std::lround(shift.tx));
    const int y = int(std::lround(shift.ty));
    return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

PixelRect largestSolid(const Layers& layers) {
    PixelRect largest;
    for (const auto& layer : layers) {
        if (layer.solid.area() > largest.area()) largest = layer.solid;
    }
    return largest;
}

Rect inset(const Rect& rect, double by) {
    return {rect.x + by, rect.y + by, rect.width - 2 * by, rect.height - 2 * by};
}

/// `opaque` are pixels that hide all below by themselves.
Layer layerOf(Flattening::FlatteningState& state, const PixelRect& opaque) {
    Layer layer;
    layer.bounds = state.bounds;
    layer.opacity = int(std::lround(state.opacity * 255));
    layer.blend = state.blend;
    const bool hides = layer.opacity == 255 && layer.blend == Blend::normal;
    layer.solid = hides ? opaque.intersection(state.bounds) : PixelRect{};
    for (const auto& edges : state.edges) layer.solid = edges.solid(layer.solid);
    for (const auto& mask : state.masks) layer.solid = layer.solid.intersection(largestSolid(*mask));
    layer.edges = std::move(state.edges);
    layer.masks = std::move(state.masks);
    return layer;
}

/// Premultiplied pixels of a frame that has alpha, as they are stored.
Raster premultiplied(const Frame& frame) {
    const PixelRect stored{0, 0, frame.width, frame.height};
    if (!Raster::holds(stored)) return {};
    Raster raster = Raster::of(stored, false);
    AxisSampler(frame, Transform(), stored, stored).fill(raster.tile());
    if (frame.layout != Frame::Layout::bgra) return raster;
    for (int y = 0; y < frame.height; ++y) Kernels::premultiply(raster.bitmap.row(y), frame.width);
    return raster;
}

template <typename Drawer>
DrawTile drawnBy(std::shared_ptr<Drawer> drawer) {
    return [drawer = std::move(drawer)](const Tile& tile) { drawer->fill(tile); };
}

}

PixelRect Flattening::seenThrough(const Transform& way, const PixelRect& bounds) {
    return PixelRect::touching(way.apply(bounds.grown(averaged, averaged).rect())).grown(2, 2);
}

void Flattening::visit(const Node::Fill& fill, FlatteningState& state) {
    if (!state.clamping) smooth(state);
    const bool opaque = fill.colour.alpha == 255 && state.opacity >= 1;
    Layer layer = layerOf(state, opaque ? state.bounds : PixelRect{});
    // Always in the colour: whether there are edges depends on what is asked for, rounding must not.
    layer.content = Layer::Flat{fill.colour.premultiplied(state.opacity)};
    layer.opacity = 255;
    layers.push_back(std::move(layer));
}

void Flattening::visit(const Node::BitmapPixels& pixels, FlatteningState& state) {
    const auto way = state.place.inverse();
    const Rect shown = takeLimits(state, skips(way) ? 0 : pixels.air);
    const PixelRect area{0, 0, pixels.bitmap.width(), pixels.bitmap.height()};
    const auto limits = PixelRect::touching(shown).clampedTo(area);
    if (!state.place.keepsAxes() && (limits != area || skips(way))) return addTurned(state, shown);
    addSeen(state, {pixels.bitmap, area, pixels.opaque}, way, limits);
}

void Flattening::visit(const Node::FramePixels& picture, FlatteningState& state) {
    const Rect shown = takeLimits(state);
    if (!state.place.keepsAxes()) return addTurned(state, shown);
    const auto& frame = picture.frame;
    const auto way = state.place.inverse().then(frame.toStored());
    const PixelRect stored{0, 0, frame.width, frame.height};
    const auto limits = PixelRect::touching(frame.toStored().apply(shown)).clampedTo(stored);
    if (frame.hasAlpha) return addSeen(state, premultiplied(frame), way, limits);
    if (state.bounds.empty()) return;
    add(state, true, drawnBy(std::make_shared<AxisSampler>(frame, way, state.bounds, limits)));
}

void Flattening::visit(const Node::Gradient& gradient, FlatteningState& state) {
    smooth(state);
    const bool opaque = gradient.first.alpha == 255 && gradient.last.alpha == 255;
    add(state, opaque, drawnBy(std::make_shared<GradientSampler>(gradient, state.place)));
}

void Flattening::visit(const Node::RoundedRectangle& shape, FlatteningState& state) {
    smooth(state);
    const bool upright = state.place.keepsAxes();
    const Rect opaque = upright ? state.place.apply(state.node->opaque) : Rect{};
    add(state, PixelRect::inside(opaque),
        drawnBy(std::make_shared<RoundedRectangleSampler>(shape, state.place)));
}

/// What of the node's picture may be shown, in its own space. Unless they repeat, its edges become smooth
/// ones; on the canvas' own grid they fall between pixels. Where the picture is clear `air` pixels
/// deep, the edges only say where there is something.
Rect Flattening::takeLimits(FlatteningState& state, int air) {
    const Rect& extent = state.node->extent;
    const bool uncut = state.limits.contains(extent);
    const Rect shown = state.limits.intersection(extent);
    state.limits = shown.empty() ? extent : shown;
    const Rect taken = state.limits;
    if (state.clamping) return taken;
    if (state.place.isShift()) {
        state.bounds = state.bounds.intersection(PixelRect::within(state.place.apply(taken)));
        return taken;
    }
    const bool bare = air > 0 && uncut;
    if (bare) state.limits = inset(taken, air - 1);
    smooth(state, bare);
    return taken;
}

/// A raster's pixels within `limits`, beyond which they repeat; `way` leads from the canvas to its grid.
void Flattening::addSeen(FlatteningState& state, Raster raster, const Transform& way,
                         const PixelRect& limits) {
    if (state.bounds.empty() || raster.bitmap.empty()) return; // too large a picture has no raster
    const bool opaque = raster.opaque;
    if (!way.keepsAxes()) return addAtAngle(state, std::move(raster), way);
    if (!way.isShift() || !limits.contains(shifted(state.bounds, way)))
        return add(state, opaque, drawnBy(std::make_shared<AxisSampler>(raster, way, state.bounds, limits)));
    raster.area = shifted(raster.area, Transform().translated(-way.tx, -way.ty));
    add(state, opaque, Layer::OnGrid{std::move(raster)});
}

/// A raster at an angle. Where the way squeezes it (a shear, uneven scales), it is drawn on a finer grid
/// first, and that is averaged: no pixel of it is skipped.
void Flattening::addAtAngle(FlatteningState& state, Raster raster, const Transform& way) {
    const auto finer = [](double step) { return int(std::clamp(std::ceil(step - slack), 1.0, 8.0)); };
    const int across = finer(std::hypot(way.a, way.b));
    const int down = finer(std::hypot(way.c, way.d));
    const bool opaque = raster.opaque;
    const auto toRaster = Transform().scaled(1.0 / across, 1.0 / down).then(way);
    auto sampler = std::make_shared<AffineSampler>(std::move(raster), toRaster);
    if (across == 1 && down == 1) return add(state, opaque, drawnBy(std::move(sampler)));
    const Transform toFine = Transform().scaled(across, down);
    const auto area = PixelRect::touching(toFine.apply(state.bounds.grown(averaged, averaged).rect()));
    if (!Raster::holds(area)) return;
    Raster fine = Raster::of(area, opaque);
    sampler->fill(fine.tile());
    add(state, opaque, drawnBy(std::make_shared<AxisSampler>(fine, toFine, state.bounds, area)));
}

/// A single picture at an angle: first along its own axes to the size at which it is seen, so that
/// nothing is skipped, then turned.
void Flattening::addTurned(FlatteningState& state, const Rect& shown) {
    if (state.bounds.empty() || tooDeep()) return;
    const PixelGrid grid = PixelGrid::over(state.node->extent, state.place, 1);
    const auto limits = PixelRect::touching(grid.toGrid.apply(shown)).clampedTo(grid.whole);
    const auto way = state.place.inverse().then(grid.toGrid);
    const auto area = seenThrough(way, state.bounds).clampedTo(limits);
    if (!Raster::holds(area)) return;
    FlatteningState flat{state.node, grid.toGrid, area};
    flat.limits = shown;
    flat.clamping = true;
    auto parts = Flattening(depth + 1).run(std::move(flat));
    Raster raster = Raster::of(area, state.node->covers(grid.toGrid, area.rect()));
    Painter::paint(parts, raster.tile());
    addSeen(state, std::move(raster), way, area);
}

void Flattening::add(FlatteningState& state, bool opaque, Layer::Content content) {
    add(state, opaque ? state.bounds : PixelRect{}, std::move(content));
}

void Flattening::add(FlatteningState& state, const PixelRect& opaque, Layer::Content content) {
    Layer layer = layerOf(state, opaque);
    if (layer.bounds.empty() || layer.opacity == 0) return;
    layer.content = std::move(content);
    layers.push_back(std::move(layer));
}

}
