#pragma once

#include "platform/image/ImageNode.h"
#include "platform/image/draw/Layer.h"
#include "platform/image/draw/PictureSource.h"

#include <memory>
#include <vector>

namespace murbo {

/// Turns one graph into layers (see `layersOf`). Holds what is still to be visited, so that depth costs no
/// stack.
class Flattening {
public:
    using Node = ImageNode;

    /// What a node inherits from those above it.
    struct FlatteningState {
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

    Layers run(FlatteningState first);

private:
    // The graph's operations (Flattening.cpp).
    void visit(const Node::Crop& crop, FlatteningState& state);
    void visit(const Node::Transformed& move, FlatteningState& state);
    void visit(const Node::Fade& fade, FlatteningState& state);
    void visit(const Node::Over& over, FlatteningState& state);
    void visit(const Node::Clamp& clamp, FlatteningState& state);
    void visit(const Node::Mask& mask, FlatteningState& state);
    void visit(const Node::Later& later, FlatteningState& state);
    void visit(const Node::Once& once, FlatteningState& state);
    void visit(const Node::ZoomBlur& blur, FlatteningState& state);
    void visit(const Node::MotionBlur& blur, FlatteningState& state);
    // What has pixels, which become a layer's (FlatteningLeaves.cpp).
    void visit(const Node::Fill& fill, FlatteningState& state);
    void visit(const Node::BitmapPixels& pixels, FlatteningState& state);
    void visit(const Node::FramePixels& picture, FlatteningState& state);
    void visit(const Node::Gradient& gradient, FlatteningState& state);
    void visit(const Node::RoundedRectangle& shape, FlatteningState& state);
    // What is filtered (FlatteningFilters.cpp).
    void visit(const Node::Filtered& filtered, FlatteningState& state);

    bool tooDeep() const;
    /// A picture that is drawn by itself.
    PictureSource sourceOf(const Node& node) const;
    void descend(FlatteningState& state, const ImageNode& child);
    static void smooth(FlatteningState& state, bool bare = false);
    void addGroup(FlatteningState& state);
    void addClamped(const ImageNode& picture, FlatteningState& state);
    void addMade(const ImageNode& picture, FlatteningState& state, int itsDepth);

    static Rect takeLimits(FlatteningState& state, int air = 0);
    /// What of a grid is needed to draw `bounds`, `way` leading from the canvas to it.
    static PixelRect seenThrough(const Transform& way, const PixelRect& bounds);
    void add(FlatteningState& state, bool opaque, Layer::Content content);
    /// `opaque` are pixels that hide all below by themselves.
    void add(FlatteningState& state, const PixelRect& opaque, Layer::Content content);
    void addSeen(FlatteningState& state, Raster raster, const Transform& way, const PixelRect& limits);
    void addAtAngle(FlatteningState& state, Raster raster, const Transform& way);
    void addTurned(FlatteningState& state, const Rect& shown);

    DrawTile filtered(const Node::Filtered& filtered, const Transform& place, const PixelRect& bounds) const;
    DrawTile filteredInPlace(const Node::Filtered& topmost, const Transform& place,
                             const PixelRect& bounds) const;
    void addFilteredUpright(const Node::Filtered& filtered, FlatteningState& state);

    int depth;
    std::vector<FlatteningState> waiting;
    Layers layers;
};

/// Flattens a graph: what is empty or outside is passed over, transforms and crops are worked into each
/// layer. `place` leads from the node's space to the canvas, `bounds` is all that will be asked. Composites
/// that must be drawn by themselves (a fade of several pictures, a blur) nest; what lies deeper than 500 of
/// them is left out.
Layers layersOf(const ImageNode& node, const Transform& place, const PixelRect& bounds, int depth = 0);

}
