#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Blend.h"
#include "platform/image/Colour.h"
#include "platform/image/Filter.h"
#include "platform/image/Frame.h"
#include "platform/image/Geometry.h"
#include "platform/image/TileCache.h"

#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace murbo {

/// One operation of an image's graph. What a canvas asks again and again (extents, what is surely opaque) is
/// worked out once, when the node is made.
///
/// A new operation is a struct here, a function in `Image`, its extents in Image.cpp and a case in
/// `Flattening`.
struct ImageNode {
    /// A node that others may share; never null within a graph.
    using Ref = std::shared_ptr<const ImageNode>;

    struct Fill {
        Colour colour;
    };
    struct BitmapPixels {
        Bitmap bitmap;
        bool opaque;
        int air; ///< pixels that are clear along its sides: with any it needs no smooth edges
    };
    struct FramePixels {
        Frame frame;
    };
    struct Crop {
        Ref of;
        Rect rect;
    };
    struct Transformed {
        Ref of;
        Transform transform;
    };
    struct Over {
        Ref above;
        Ref below;
        Blend blend;
    };
    struct Mask {
        Ref of;
        Ref mask;
    };
    /// One colour above `from`, another below `to`, and an even passage from one to the other between.
    struct Gradient {
        double from;
        double to;
        Colour first;
        Colour last;
    };
    struct RoundedRectangle {
        Rect rect;
        double radius; ///< at most half the shorter side
        double line;   ///< how wide the line along the edge; 0 fills the shape
        Colour colour;

        /// The largest upright rectangle that is known to lie wholly inside the shape.
        Rect solid() const;
    };
    struct Later {
        std::function<Ref()> make;
    };
    struct Once {
        Ref of;
        std::shared_ptr<TileCache> cache;
    };
    struct Clamp {
        Ref of;
    };
    struct Fade {
        Ref of;
        double opacity; ///< 0 to 1, exclusive
    };
    struct ZoomBlur {
        Ref of;
        Point centre;
        double spread; ///< natural logarithm of the scale from a smear's inner end to its outer one
    };
    struct MotionBlur {
        Ref of;
        Point reach; ///< the smear's half, from its middle to one end
    };
    struct Filtered {
        Ref of;
        Filter filter; ///< within what can be drawn
    };
    using Kind = std::variant<Fill, BitmapPixels, FramePixels, Crop, Transformed, Over, Clamp, Fade, ZoomBlur,
                              MotionBlur, Filtered, Mask, Gradient, RoundedRectangle, Later, Once>;

    Kind kind;
    Rect extent;         ///< where there can be colour
    Rect body;           ///< the extent without what clamping added
    Rect opaque;         ///< all of it is opaque; empty where that is not known
    bool single = false; ///< one picture, at most cropped, faded and moved along the axes: clamping it is
                         ///< sampling it so

    ImageNode(Kind what, Rect extent, Rect body, Rect opaque, bool single);
    ~ImageNode();
    ImageNode(const ImageNode&) = delete;
    ImageNode& operator=(const ImageNode&) = delete;

    /// Whether it is known to be opaque all over an area, seen through `place`.
    bool covers(const Transform& place, const Rect& area) const;

private:
    struct Remains;
    void giveUp(Remains& remains);
};

}
