#pragma once

#include "platform/image/draw/Layers.h"

#include <memory>
#include <vector>

namespace murbo {

/// Turns one graph into layers (see `layersOf`). Holds what is still to be visited, so that depth costs no
/// stack.
class Flattening {
public:
    using Node = Image::Node;

    /// What a node inherits from those above it.
    struct State {
        const Node* node;
        Transform place;                  ///< from the node's space to the canvas
        PixelRect bounds;                 ///< of the canvas
        Rect limits = Rect::everything(); ///< in the node's space: what crops have left, whose edges will be
                                          ///< smooth
        bool clamping = false;            ///< the limits' edges repeat instead
        double opacity = 1;
        std::vector<Edges> edges;
        std::vector<std::shared_ptr<Layers>> masks;
        Blend blend = Blend::normal;
        bool lowest = true; ///< nothing of what is flattened lies below

        /// Nothing is done to the node's pixels but placing them.
        bool plain() const;
    };

    explicit Flattening(int depthSoFar) : depth(depthSoFar) {}

    Layers run(State first);

private:
    // The graph's operations (Layers.cpp).
    void visit(const Node::Crop& crop, State& state);
    void visit(const Node::Move& move, State& state);
    void visit(const Node::Fade& fade, State& state);
    void visit(const Node::Over& over, State& state);
    void visit(const Node::Clamp& clamp, State& state);
    void visit(const Node::Mask& mask, State& state);
    void visit(const Node::Later& later, State& state);
    void visit(const Node::Once& once, State& state);
    // What has pixels, which become a layer's (Inks.cpp).
    void visit(const Node::Fill& fill, State& state);
    void visit(const Node::Pixels& pixels, State& state);
    void visit(const Node::Picture& picture, State& state);
    void visit(const Node::Ramp& ramp, State& state);
    void visit(const Node::Rounded& shape, State& state);
    void visit(const Node::ZoomBlur& blur, State& state);
    void visit(const Node::MotionBlur& blur, State& state);
    void visit(const Node::Filtered& filtered, State& state);

    bool tooDeep() const;
    void descend(State& state, const Image& child);
    static void smooth(State& state, bool bare = false);
    void addGroup(State& state);
    void addClamped(const Image& image, State& state);
    void addMade(const Image& image, State& state, int itsDepth);

    static Rect takeLimits(State& state, int air = 0);
    /// What of a grid is needed to draw `bounds`, `way` leading from the canvas to it.
    static PixelRect seenThrough(const Transform& way, const PixelRect& bounds);
    void add(State& state, bool opaque, Layer::Ink ink);
    /// `opaque` are pixels that hide all below by themselves.
    void add(State& state, const PixelRect& opaque, Layer::Ink ink);
    void addSeen(State& state, Raster raster, const Transform& way, const PixelRect& limits);
    void addAtAngle(State& state, Raster raster, const Transform& way);
    void addTurned(State& state, const Rect& shown);

    int depth;
    std::vector<State> waiting;
    Layers layers;
};

}
