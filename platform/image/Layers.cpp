#include "platform/image/Layers.h"

#include "platform/image/Filters.h"
#include "platform/image/Memo.h"
#include "platform/image/Painter.h"
#include "platform/image/Ramp.h"
#include "platform/image/Rasterised.h"
#include "platform/image/Rounded.h"
#include "platform/image/Smear.h"
#include "platform/image/Turner.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

using Node = Image::Node;

constexpr int deepest = 100;
/// Pixels at an angle may lie so much further apart than one before they count as skipped.
constexpr double slack = 0.35;

/// What a node inherits from those above it.
struct State {
    const Node* node;
    Transform place;  ///< from the node's space to the canvas
    PixelRect bounds; ///< of the canvas
    Rect limits =
        Rect::everything(); ///< in the node's space: what crops have left, whose edges will be smooth
    bool clamping = false;  ///< the limits' edges repeat instead
    double opacity = 1;
    std::vector<Edges> edges;
    std::vector<std::shared_ptr<Layers>> masks;
    Blend blend = Blend::normal;
    bool lowest = true; ///< nothing of what is flattened lies below

    /// Nothing is done to the node's pixels but placing them.
    bool plain() const { return opacity >= 1 && edges.empty() && masks.empty() && blend == Blend::normal; }
};

/// Whether places under a transform can be told apart in numbers.
bool countable(const Transform& transform) {
    const double values[] = {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
    return std::all_of(values, values + 6, [](double value) { return std::abs(value) < 1e12; });
}

/// Whether a way from the canvas to a picture's pixels passes some of them over.
bool skips(const Transform& way) {
    return std::max(std::hypot(way.a, way.b), std::hypot(way.c, way.d)) > 1 + slack;
}

bool isShift(const Transform& transform) {
    const auto whole = [](double value) {
        return std::abs(value - std::round(value)) < 1e-6 && std::abs(value) < (1 << 28);
    };
    return transform.a == 1 && transform.b == 0 && transform.c == 0 && transform.d == 1 &&
           whole(transform.tx) && whole(transform.ty);
}

PixelRect shifted(const PixelRect& rect, const Transform& shift) {
    const int x = int(std::lround(shift.tx));
    const int y = int(std::lround(shift.ty));
    return {rect.left + x, rect.top + y, rect.right + x, rect.bottom + y};
}

/// Turns one graph into layers. Holds what is still to be visited, so that depth costs no stack.
class Flattening {
public:
    explicit Flattening(int depthSoFar) : depth(depthSoFar) {}

    Layers run(State first) {
        waiting.push_back(std::move(first));
        while (!waiting.empty()) {
            State state = std::move(waiting.back());
            waiting.pop_back();
            if (visible(state)) std::visit([&](const auto& kind) { visit(kind, state); }, state.node->kind);
        }
        return std::move(layers);
    }

private:
    static bool visible(State& state) {
        if (!countable(state.place) || !countable(state.place.inverse())) return false;
        const auto shown = state.place.apply(state.limits.intersection(state.node->extent));
        if (!state.clamping && !shown.isEverything())
            state.bounds = state.bounds.intersection(PixelRect::touching(shown));
        return !state.bounds.empty();
    }

    void descend(State& state, const Image& child) {
        state.node = &child.node();
        waiting.push_back(std::move(state));
    }

    void visit(const Node::Crop& crop, State& state) {
        if (!state.clamping && isShift(state.place))
            state.bounds = state.bounds.intersection(PixelRect::within(state.place.apply(crop.rect)));
        else
            state.limits = state.limits.intersection(crop.rect);
        descend(state, crop.of);
    }

    void visit(const Node::Move& move, State& state) {
        if (keepsAxes(move.transform))
            state.limits = move.transform.inverse().apply(state.limits);
        else
            smooth(state);
        state.place = move.transform.then(state.place);
        descend(state, move.of);
    }

    void visit(const Node::Fade& fade, State& state) {
        state.opacity *= fade.opacity;
        descend(state, fade.of);
    }

    void visit(const Node::Over& over, State& state) {
        smooth(state);
        const bool mixesWithOwn = over.blend == Blend::normal || state.lowest || hides(over, state);
        if (!state.plain() || !mixesWithOwn) return addGroup(state);
        State above = state;
        above.blend = over.blend;
        above.lowest = false;
        descend(above, over.above);
        descend(state, over.below);
    }

    /// Whether what lies below an image hides all that is below itself, wherever the image is drawn.
    static bool hides(const Node::Over& over, const State& state) {
        const auto drawn = PixelRect::touching(state.place.apply(over.above.extent()));
        return covers(over.below.node(), state.place, drawn.intersection(state.bounds));
    }

    void visit(const Node::Clamp& clamp, State& state) {
        if (state.clamping) return descend(state, clamp.of);
        smooth(state);
        if (!clamp.of.node().single) return addClamped(clamp.of, state);
        state.clamping = true;
        descend(state, clamp.of);
    }

    void visit(const Node::Fill& fill, State& state) {
        if (!state.clamping) smooth(state);
        const bool opaque = fill.colour.alpha == 255 && state.opacity >= 1;
        const bool plain = state.edges.empty() && state.masks.empty();
        Layer layer = layerOf(state, opaque ? state.bounds : PixelRect{});
        layer.ink = Layer::Flat{premultiplied(fill.colour, plain ? state.opacity : 1)};
        if (plain) layer.opacity = 255;
        layers.push_back(std::move(layer));
    }

    void visit(const Node::Pixels& pixels, State& state) {
        const Rect shown = takeLimits(state);
        const PixelRect area{0, 0, pixels.bitmap.width(), pixels.bitmap.height()};
        const auto limits = PixelRect::touching(shown).heldIn(area);
        const auto way = state.place.inverse();
        if (!keepsAxes(state.place) && (limits != area || skips(way))) return addTurned(state, shown);
        addSeen(state, {pixels.bitmap, area, pixels.opaque}, way, limits);
    }

    void visit(const Node::Picture& picture, State& state) {
        const Rect shown = takeLimits(state);
        if (!keepsAxes(state.place)) return addTurned(state, shown);
        const auto& frame = picture.frame;
        const auto way = state.place.inverse().then(frame.toStored());
        const PixelRect stored{0, 0, frame.width, frame.height};
        const auto limits = PixelRect::touching(frame.toStored().apply(shown)).heldIn(stored);
        if (frame.hasAlpha) return addSeen(state, premultiplied(frame), way, limits);
        if (state.bounds.empty()) return;
        add(state, true, drawnBy(std::make_shared<Sampler>(frame, way, state.bounds, limits)));
    }

    void visit(const Node::ZoomBlur& blur, State& state) {
        addSmeared(state, [&] { return Smear::zoom(blur, state.place, state.bounds, depth + 1); });
    }

    void visit(const Node::MotionBlur& blur, State& state) {
        addSmeared(state, [&] { return Smear::motion(blur, state.place, state.bounds, depth + 1); });
    }

    void visit(const Node::Filtered& filtered, State& state) {
        smooth(state);
        if (depth >= deepest) return;
        if (!Filters::fits(filtered.filter, state.place)) {
            const auto own = Filters::upright(*state.node, filtered, state.place, state.bounds, depth + 1);
            if (!own.raster.bitmap.empty()) addSeen(state, own.raster, own.toGrid, own.raster.area);
            return;
        }
        add(state, covers(*state.node, state.place, state.bounds),
            Filters::drawing(filtered, state.place, state.bounds, depth + 1));
    }

    void visit(const Node::Mask& mask, State& state) {
        if (depth >= deepest) return;
        auto shape = layersOf(mask.mask.node(), state.place, state.bounds, depth + 1);
        if (shape.empty()) return;
        state.masks.push_back(std::make_shared<Layers>(std::move(shape)));
        descend(state, mask.of);
    }

    void visit(const Node::Ramp& ramp, State& state) {
        smooth(state);
        const bool opaque = ramp.first.alpha == 255 && ramp.last.alpha == 255;
        add(state, opaque, drawnBy(std::make_shared<Ramp>(ramp, state.place)));
    }

    void visit(const Node::Rounded& shape, State& state) {
        smooth(state);
        const bool upright = keepsAxes(state.place);
        const Rect opaque = upright ? state.place.apply(state.node->opaque) : Rect{};
        add(state, PixelRect::inside(opaque), drawnBy(std::make_shared<Rounded>(shape, state.place)));
    }

    void visit(const Node::Later& later, State& state) {
        if (depth < deepest) addMade(later.make().cropped(state.node->extent), state, depth + 1);
    }

    /// What was drawn once is a bitmap like any other.
    void visit(const Node::Once& once, State& state) {
        const auto& place = state.place;
        const double scale = std::max(std::hypot(place.a, place.b), std::hypot(place.c, place.d));
        // Enlarging a bitmap beforehand would gain nothing.
        const bool bitmap = std::holds_alternative<Node::Pixels>(once.of.node().kind);
        const double level = std::min(Memo::level(scale), bitmap ? 1.0 : Memo::finest);
        const auto toGrid = Transform().scaled(level, level);
        const Rect shown = toGrid.apply(state.node->extent);
        const auto whole = PixelRect::touching(shown);
        if (depth >= deepest || !Raster::holds(whole)) return descend(state, once.of);
        // What covers its outermost pixels in part is drawn repeated there, and cut where it is shown.
        const Image of = whole.rect() == shown ? once.of : once.of.clamped();
        const auto way = place.inverse().then(toGrid);
        const auto margin = [](double one, double other) {
            return int(std::min(4 * (std::abs(one) + std::abs(other)), 1e6)) + 8;
        };
        const auto wanted = PixelRect::touching(way.apply(state.bounds.rect()))
                                .grown(margin(way.a, way.c), margin(way.b, way.d))
                                .heldIn(whole);
        const Bitmap pixels = once.memo->pixels(level, whole, wanted, [&](const Tile& tile) {
            auto parts = layersOf(of.node(), toGrid, tile.area, depth + 1);
            Painter::paint(parts, tile);
        });
        state.limits = state.limits.intersection(state.node->extent);
        const bool opaque = covers(*state.node, toGrid, whole);
        addMade(Image::bitmap(pixels, opaque)
                    .transformed(Transform().translated(whole.left, whole.top).then(toGrid.inverse())),
                state, depth);
    }

    /// A picture that stands for the node.
    void addMade(const Image& image, State& state, int itsDepth) {
        state.node = &image.node();
        auto parts = Flattening(itsDepth).run(std::move(state));
        std::move(parts.begin(), parts.end(), std::back_inserter(layers));
    }

    /// From here on the limits can't be followed: they become smooth edges.
    static void smooth(State& state) {
        if (state.limits.isEverything()) return;
        state.edges.emplace_back(state.limits, state.place);
        if (state.edges.back().solid(state.bounds) == state.bounds) state.edges.pop_back();
        state.limits = Rect::everything();
    }

    /// What of the node's picture may be shown, in its own space. Unless they repeat, its edges become smooth
    /// ones; on the canvas' own grid they fall between pixels.
    static Rect takeLimits(State& state) {
        const Rect& extent = state.node->extent;
        const Rect shown = state.limits.intersection(extent);
        state.limits = shown.empty() ? extent : shown;
        const Rect taken = state.limits;
        if (state.clamping) return taken;
        if (isShift(state.place))
            state.bounds = state.bounds.intersection(PixelRect::within(state.place.apply(taken)));
        else
            smooth(state);
        return taken;
    }

    /// `opaque` are pixels that hide all below by themselves.
    static Layer layerOf(State& state, const PixelRect& opaque) {
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

    static PixelRect largestSolid(const Layers& layers) {
        PixelRect largest;
        for (const auto& layer : layers) {
            if (layer.solid.area() > largest.area()) largest = layer.solid;
        }
        return largest;
    }

    template <typename Ink>
    void add(State& state, bool opaque, Ink ink) {
        add(state, opaque ? state.bounds : PixelRect{}, std::move(ink));
    }

    template <typename Ink>
    void add(State& state, const PixelRect& opaque, Ink ink) {
        Layer layer = layerOf(state, opaque);
        if (layer.bounds.empty() || layer.opacity == 0) return;
        layer.ink = std::move(ink);
        layers.push_back(std::move(layer));
    }

    template <typename Drawer>
    static Layer::Draw drawnBy(std::shared_ptr<Drawer> drawer) {
        return [drawer = std::move(drawer)](const Tile& tile) { drawer->fill(tile); };
    }

    /// A raster's pixels within `limits`, beyond which they repeat; `way` leads from the canvas to its grid.
    void addSeen(State& state, Raster raster, const Transform& way, const PixelRect& limits) {
        if (state.bounds.empty() || raster.bitmap.empty()) return; // too large a picture has no raster
        const bool opaque = raster.opaque;
        if (!keepsAxes(way)) return addAtAngle(state, std::move(raster), way);
        if (!isShift(way) || !limits.contains(shifted(state.bounds, way)))
            return add(state, opaque, drawnBy(std::make_shared<Sampler>(raster, way, state.bounds, limits)));
        raster.area = shifted(raster.area, Transform().translated(-way.tx, -way.ty));
        add(state, opaque, Layer::Still{std::move(raster)});
    }

    /// A raster at an angle. Where the way squeezes it (a shear, uneven scales), it is drawn on a finer grid
    /// first, and that is averaged: no pixel of it is skipped.
    void addAtAngle(State& state, Raster raster, const Transform& way) {
        const auto finer = [](double step) { return int(std::clamp(std::ceil(step - slack), 1.0, 8.0)); };
        const int across = finer(std::hypot(way.a, way.b));
        const int down = finer(std::hypot(way.c, way.d));
        const bool opaque = raster.opaque;
        const auto toRaster = Transform().scaled(1.0 / across, 1.0 / down).then(way);
        auto turner = std::make_shared<Turner>(std::move(raster), toRaster);
        if (across == 1 && down == 1) return add(state, opaque, drawnBy(std::move(turner)));
        const Transform toFine = Transform().scaled(across, down);
        const auto area = PixelRect::touching(toFine.apply(state.bounds.rect())).grown(across, down);
        if (!Raster::holds(area)) return;
        Raster fine = Raster::of(area, opaque);
        turner->fill(fine.tile());
        add(state, opaque, drawnBy(std::make_shared<Sampler>(fine, toFine, state.bounds, area)));
    }

    /// A single picture at an angle: first along its own axes to the size at which it is seen, so that
    /// nothing is skipped, then turned.
    void addTurned(State& state, const Rect& shown) {
        if (state.bounds.empty() || depth >= deepest) return;
        const Grid grid = Grid::over(state.node->extent, state.place, 1);
        const auto limits = PixelRect::touching(grid.toGrid.apply(shown)).heldIn(grid.whole);
        const auto way = state.place.inverse().then(grid.toGrid);
        const auto area = PixelRect::touching(way.apply(state.bounds.rect())).grown(2, 2).heldIn(limits);
        if (!Raster::holds(area)) return;
        State flat{state.node, grid.toGrid, area};
        flat.limits = shown;
        flat.clamping = true;
        addSeen(state, painted(Flattening(depth + 1).run(std::move(flat)), *state.node, grid.toGrid, area),
                way, area);
    }

    /// The repeated edges of a composite: what they frame is drawn by itself.
    void addClamped(const Image& image, State& state) {
        if (depth >= deepest) return;
        const Grid grid = Grid::over(image.extent(), state.place, 1e9);
        const auto way = state.place.inverse().then(grid.toGrid);
        const auto area = PixelRect::touching(way.apply(state.bounds.rect())).grown(2, 2).heldIn(grid.whole);
        if (!Raster::holds(area)) return;
        addSeen(state, rasterised(image.node(), grid.toGrid, area, depth + 1), way, area);
    }

    template <typename Smear>
    void addSmeared(State& state, Smear smear) {
        smooth(state);
        if (depth >= deepest) return;
        auto smeared = smear();
        if (smeared.raster.bitmap.empty()) return;
        addSeen(state, smeared.raster, smeared.toGrid, smeared.raster.area);
    }

    /// Several pictures that are faded or cut as one.
    void addGroup(State& state) {
        if (depth >= deepest) return;
        auto inner = std::make_shared<Layers>(layersOf(*state.node, state.place, state.bounds, depth + 1));
        add(state, covers(*state.node, state.place, state.bounds),
            Layer::Draw([inner](const Tile& tile) { Painter::paint(*inner, tile); }));
    }

    int depth;
    std::vector<State> waiting;
    Layers layers;
};

}

Layers layersOf(const Node& node, const Transform& place, const PixelRect& bounds, int depth) {
    return Flattening(depth).run({&node, place, bounds});
}

}
