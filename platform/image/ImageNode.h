#pragma once

#include "platform/image/Image.h"

#include <variant>
#include <vector>

namespace murbo {

class Memo;

/// One operation of an image's graph. What a canvas asks again and again (extents, what is surely opaque) is
/// worked out once, when the node is made.
///
/// A new operation is a struct here, a function in `Image`, its extents in Image.cpp and a case in
/// Layers.cpp.
struct Image::Node {
    struct Fill {
        Colour colour;
    };
    struct Pixels {
        Bitmap bitmap;
        bool opaque;
        int air; ///< pixels that are clear along its sides: with any it needs no smooth edges
    };
    struct Picture {
        Frame frame;
    };
    struct Crop {
        Image of;
        Rect rect;
    };
    struct Move {
        Image of;
        Transform transform;
    };
    struct Over {
        Image above;
        Image below;
        Blend blend;
    };
    struct Mask {
        Image of;
        Image mask;
    };
    /// One colour above `from`, another below `to`, and what leads from one to the other between.
    struct Ramp {
        double from;
        double to;
        Colour first;
        Colour last;
    };
    struct Rounded {
        Rect rect;
        double radius; ///< at most half the shorter side
        double line;   ///< how wide the line along the edge; 0 fills the shape
        Colour colour;
    };
    struct Later {
        std::function<Image()> make;
    };
    struct Once {
        Image of;
        std::shared_ptr<Memo> memo;
    };
    struct Clamp {
        Image of;
    };
    struct Fade {
        Image of;
        double opacity; ///< 0 to 1, exclusive
    };
    struct ZoomBlur {
        Image of;
        Point centre;
        double
            spread; ///< natural logarithm of the scale that leads from a smear's inner end to its outer one
    };
    struct MotionBlur {
        Image of;
        Point reach; ///< the smear's half, from its middle to one end
    };
    struct Filtered {
        Image of;
        Filter filter;                                           ///< within what can be drawn
        std::shared_ptr<const std::vector<std::uint32_t>> table; ///< a cube's colours, packed
    };
    using Kind = std::variant<Fill, Pixels, Picture, Crop, Move, Over, Clamp, Fade, ZoomBlur, MotionBlur,
                              Filtered, Mask, Ramp, Rounded, Later, Once>;

    Kind kind;
    Rect extent;         ///< where there can be colour
    Rect body;           ///< the extent without what clamping added
    Rect opaque;         ///< all of it is opaque; empty where that is not known
    bool single = false; ///< one picture, at most cropped, faded and moved along the axes: clamping it is
                         ///< sampling it so

    Node(Kind what, Rect extent, Rect body, Rect opaque, bool single);
    ~Node();
    static Image imageOf(Pixels pixels);
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

private:
    struct Waiting;
    void giveUp(Waiting& children);
};

/// Whether upright rectangles stay upright ones: no turn but by quarters, no shear.
bool keepsAxes(const Transform& transform);
/// Whether pixels stay pixels, moved by whole ones.
bool isShift(const Transform& transform);

}
