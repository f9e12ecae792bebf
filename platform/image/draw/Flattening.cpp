#include "platform/image/draw/Flattening.h"

#include "platform/image/Image.h"
#include "platform/image/TileCache.h"
#include "platform/image/draw/DirectionalBlur.h"
#include "platform/image/draw/Painter.h"
#include "platform/image/draw/PixelGrid.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace murbo {
namespace {

using Node = ImageNode;

/// Drawings within drawings: enough for a hundred overlays that each keep, filter, smear, fade and blend what
/// lies below. One takes under 2 kB of stack.
constexpr int deepest = 500;
/// Pixels of a picture that is kept whole whatever is seen of it.
constexpr std::int64_t smallPicture = 1 << 17;

/// Whether places under a transform can be told apart in numbers.
bool countable(const Transform& transform) {
    const double values[] = {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
    return std::all_of(values, values + 6, [](double value) { return std::abs(value) < 1e12; });
}

bool visible(Flattening::FlatteningState& state) {
    if (!countable(state.place) || !countable(state.place.inverse())) return false;
    const auto shown = state.place.apply(state.limits.intersection(state.node->extent));
    if (!state.clamping && !shown.isEverything())
        state.bounds = state.bounds.intersection(PixelRect::touching(shown));
    return !state.bounds.empty();
}

/// Whether what lies below an image hides all that is below itself, wherever the image is. This must not
/// depend on what is asked for: mixed with its own group alone, a picture can come out a level different.
bool hides(const Node::Over& over) {
    return over.below->opaque.contains(over.above->extent);
}

/// How finely a picture is kept that is seen through `place`. Enlarging a bitmap beforehand would gain
/// nothing.
double levelOf(const Node& picture, const Transform& place) {
    const double scale = std::max(std::hypot(place.a, place.b), std::hypot(place.c, place.d));
    const bool bitmap = std::holds_alternative<Node::BitmapPixels>(picture.kind);
    return std::min(TileCache::level(scale), bitmap ? 1.0 : TileCache::finest);
}

/// What of a grid is needed to draw `bounds`, with all that filters may reach beside it.
PixelRect neededOf(const PixelRect& whole, const PixelRect& bounds, const Transform& toGrid) {
    const auto margin = [](double one, double other) {
        return int(std::min(4 * (std::abs(one) + std::abs(other)), 1e6)) + 8;
    };
    return PixelRect::touching(toGrid.apply(bounds.rect()))
        .grown(margin(toGrid.a, toGrid.c), margin(toGrid.b, toGrid.d))
        .clampedTo(whole);
}

/// What of a kept picture can be seen: where edges repeat, those that crops have left do.
PixelRect shownOf(const PixelRect& whole, const Flattening::FlatteningState& state, const Transform& toGrid) {
    const Rect left = state.limits.intersection(state.node->extent);
    if (!state.clamping || left.empty()) return whole;
    return PixelRect::touching(toGrid.apply(left)).clampedTo(whole);
}

/// A picture as it is kept, at its place.
struct CachedPicture {
    Image image;
    bool cut; ///< it is larger than the picture
};

Image imageOf(const Bitmap& pixels, bool opaque, int air) {
    const Rect extent{0, 0, double(pixels.width()), double(pixels.height())};
    return Image(std::make_shared<Node>(Node::BitmapPixels{pixels, opaque, air}, extent, extent,
                                        opaque ? extent : Rect{}, true));
}

/// Nothing where it would be too large.
std::optional<CachedPicture> cachedOf(const Node::Once& once, const Flattening::FlatteningState& state,
                                      int depth) {
    const double level = levelOf(*once.of, state.place);
    const auto toGrid = Transform().scaled(level, level);
    const Rect shown = toGrid.apply(state.node->extent);
    const auto whole = PixelRect::touching(shown);
    if (!Raster::holds(whole)) return std::nullopt;
    // Where a picture whose edges repeat covers its outermost pixels in part, it is drawn repeated there, and
    // cut where it is shown.
    const bool repeats = state.node->single && whole.rect() != shown;
    const auto of = repeats ? Image(once.of).clamped().node() : once.of;
    const auto way = state.place.inverse().then(toGrid);
    const bool small = whole.area() <= smallPicture;
    const auto needed = small ? whole : neededOf(shownOf(whole, state, toGrid), state.bounds, way);
    const auto draw = [&](const Tile& tile) {
        auto parts = layersOf(*of, toGrid, tile.area, depth);
        Painter::paint(parts, tile);
    };
    const Bitmap pixels = once.cache->pixels(level, whole, needed, draw);
    const auto back = Transform().translated(whole.left, whole.top).then(toGrid.inverse());
    const bool opaque = of->covers(toGrid, whole.rect());
    const int air = small && !opaque ? pixels.air() : 0;
    return CachedPicture{imageOf(pixels, opaque, air).transformed(back), repeats && air == 0};
}

}

bool Flattening::FlatteningState::plain() const {
    return opacity >= 1 && edges.empty() && masks.empty() && blend == Blend::normal;
}

bool Flattening::tooDeep() const {
    return depth >= deepest;
}

PictureSource Flattening::sourceOf(const Node& node) const {
    const auto drawing = [&node, inner = depth + 1](const Transform& place, const PixelRect& bounds) {
        auto parts = std::make_shared<Layers>(layersOf(node, place, bounds, inner));
        return [parts](const Tile& tile) { Painter::paint(*parts, tile); };
    };
    return {node, drawing};
}

Layers Flattening::run(FlatteningState first) {
    waiting.push_back(std::move(first));
    while (!waiting.empty()) {
        FlatteningState state = std::move(waiting.back());
        waiting.pop_back();
        if (visible(state)) std::visit([&](const auto& kind) { visit(kind, state); }, state.node->kind);
    }
    return std::move(layers);
}

void Flattening::descend(FlatteningState& state, const ImageNode& child) {
    state.node = &child;
    waiting.push_back(std::move(state));
}

void Flattening::visit(const Node::Crop& crop, FlatteningState& state) {
    if (!state.clamping && state.place.isShift())
        state.bounds = state.bounds.intersection(PixelRect::within(state.place.apply(crop.rect)));
    else
        state.limits = state.limits.intersection(crop.rect);
    descend(state, *crop.of);
}

void Flattening::visit(const Node::Transformed& move, FlatteningState& state) {
    if (move.transform.keepsAxes())
        state.limits = move.transform.inverse().apply(state.limits);
    else
        smooth(state);
    state.place = move.transform.then(state.place);
    descend(state, *move.of);
}

void Flattening::visit(const Node::Fade& fade, FlatteningState& state) {
    state.opacity *= fade.opacity;
    descend(state, *fade.of);
}

void Flattening::visit(const Node::Over& over, FlatteningState& state) {
    smooth(state);
    const bool mixesWithOwn = over.blend == Blend::normal || state.lowest || hides(over);
    if (!state.plain() || !mixesWithOwn) return addGroup(state);
    FlatteningState above = state;
    above.blend = over.blend;
    above.lowest = false;
    descend(above, *over.above);
    descend(state, *over.below);
}

/// Several pictures that are faded or cut as one.
void Flattening::addGroup(FlatteningState& state) {
    if (tooDeep()) return;
    add(state, state.node->covers(state.place, state.bounds.rect()),
        sourceOf(*state.node).drawing(state.place, state.bounds));
}

void Flattening::visit(const Node::Clamp& clamp, FlatteningState& state) {
    if (state.clamping) return descend(state, *clamp.of);
    smooth(state);
    if (!clamp.of->single) return addClamped(*clamp.of, state);
    state.clamping = true;
    descend(state, *clamp.of);
}

/// The repeated edges of a composite: what they frame is drawn by itself.
void Flattening::addClamped(const ImageNode& picture, FlatteningState& state) {
    if (tooDeep()) return;
    const PixelGrid grid = PixelGrid::over(picture.extent, state.place, 1e9);
    const auto way = state.place.inverse().then(grid.toGrid);
    const auto area = seenThrough(way, state.bounds).clampedTo(grid.whole);
    if (!Raster::holds(area)) return;
    addSeen(state, sourceOf(picture).raster(grid.toGrid, area), way, area);
}

void Flattening::visit(const Node::Mask& mask, FlatteningState& state) {
    if (tooDeep()) return;
    auto shape = layersOf(*mask.mask, state.place, state.bounds, depth + 1);
    if (shape.empty()) return;
    state.masks.push_back(std::make_shared<Layers>(std::move(shape)));
    descend(state, *mask.of);
}

void Flattening::visit(const Node::ZoomBlur& blur, FlatteningState& state) {
    smooth(state);
    if (tooDeep()) return;
    const auto own = DirectionalBlur::zoom(blur, sourceOf(*blur.of), state.place, state.bounds);
    addSeen(state, own.raster, own.toGrid, own.raster.area);
}

void Flattening::visit(const Node::MotionBlur& blur, FlatteningState& state) {
    smooth(state);
    if (tooDeep()) return;
    const auto own = DirectionalBlur::motion(blur, sourceOf(*blur.of), state.place, state.bounds);
    addSeen(state, own.raster, own.toGrid, own.raster.area);
}

void Flattening::visit(const Node::Later& later, FlatteningState& state) {
    if (!tooDeep()) addMade(*Image(later.make()).cropped(state.node->extent).node(), state, depth + 1);
}

void Flattening::visit(const Node::Once& once, FlatteningState& state) {
    if (tooDeep()) return; // shown twice without being kept, each would double the work of the next
    const auto cached = cachedOf(once, state, depth + 1);
    if (!cached) return descend(state, *once.of);
    if (!state.clamping && cached->cut) {
        state.limits = state.limits.intersection(state.node->extent);
        smooth(state);
    }
    addMade(*cached->image.node(), state, depth);
}

/// A picture that stands for the node.
void Flattening::addMade(const ImageNode& picture, FlatteningState& state, int itsDepth) {
    state.node = &picture;
    auto parts = Flattening(itsDepth).run(std::move(state));
    std::move(parts.begin(), parts.end(), std::back_inserter(layers));
}

/// From here on the limits can't be followed: they become smooth edges.
void Flattening::smooth(FlatteningState& state, bool bare) {
    if (state.limits.isEverything()) return;
    state.edges.emplace_back(state.limits, state.place, bare);
    const auto& edges = state.edges.back();
    const bool needless = edges.bare() && !edges.slanted();
    if (needless || edges.solid(state.bounds) == state.bounds) state.edges.pop_back();
    state.limits = Rect::everything();
}

Layers layersOf(const Node& node, const Transform& place, const PixelRect& bounds, int depth) {
    return Flattening(depth).run({&node, place, bounds});
}

}
