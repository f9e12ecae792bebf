#include "platform/image/Layers.h"

#include "platform/image/Painter.h"
#include "platform/image/Rasterised.h"
#include "platform/image/Smear.h"
#include "platform/image/Turner.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

using Node = Image::Node;

constexpr int deepest = 100;

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
};

/// Whether places under a transform can be told apart in numbers.
bool countable(const Transform& transform) {
    const double values[] = {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
    return std::all_of(values, values + 6, [](double value) { return std::abs(value) < 1e12; });
}

bool isShift(const Transform& transform) {
    const auto whole = [](double value) {
        return std::abs(value - std::round(value)) < 1e-6 && std::abs(value) < (1 << 28);
    };
    return transform.a == 1 && transform.b == 0 && transform.c == 0 && transform.d == 1 &&
           whole(transform.tx) && whole(transform.ty);
}

std::uint32_t premultiplied(Colour colour, double opacity) {
    const double alpha = colour.alpha / 255.0 * opacity;
    const auto channel = [&](int value) { return std::uint32_t(std::lround(value * alpha)); };
    return channel(colour.blue) | channel(colour.green) << 8 | channel(colour.red) << 16 | channel(255) << 24;
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
        if (state.opacity < 1 || !state.edges.empty()) return addGroup(state);
        State above = state;
        descend(above, over.above);
        descend(state, over.below);
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
        const bool plain = state.edges.empty();
        Layer layer = layerOf(state, opaque);
        layer.ink = Layer::Flat{premultiplied(fill.colour, plain ? state.opacity : 1)};
        if (plain) layer.opacity = 255;
        layers.push_back(std::move(layer));
    }

    void visit(const Node::Pixels& pixels, State& state) {
        const Rect shown = takeLimits(state);
        if (!keepsAxes(state.place)) return addTurned(state, shown);
        const PixelRect area{0, 0, pixels.bitmap.width(), pixels.bitmap.height()};
        addSeen(state, {pixels.bitmap, area, false}, state.place.inverse(),
                PixelRect::touching(shown).heldIn(area));
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

    static Layer layerOf(State& state, bool opaque) {
        Layer layer;
        layer.bounds = state.bounds;
        layer.opacity = int(std::lround(state.opacity * 255));
        layer.solid = opaque && layer.opacity == 255 ? state.bounds : PixelRect{};
        for (const auto& edges : state.edges) layer.solid = edges.solid(layer.solid);
        layer.edges = std::move(state.edges);
        return layer;
    }

    template <typename Ink>
    void add(State& state, bool opaque, Ink ink) {
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
        const auto finer = [](double step) { return int(std::clamp(std::ceil(step - 0.25), 1.0, 8.0)); };
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
