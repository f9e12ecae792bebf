#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Blend.h"
#include "platform/image/Colour.h"
#include "platform/image/Filter.h"
#include "platform/image/Frame.h"
#include "platform/image/Geometry.h"

#include <functional>
#include <memory>

namespace murbo {

struct ImageNode;

/// A picture to be: a small immutable value, the root of a graph of operations that draws nothing until a
/// `Canvas` asks for pixels.
///
/// Conventions, fixed here for all drawing:
/// - Pixels are 8-bit premultiplied sRGB and are composited in that space, as browsers and editors do: what
///   a designer picked by eye there comes out the same here.
/// - The origin is the top left and y points down, as in every record. A rule written for an upward y is
///   turned where it is applied, never here.
/// - `extent` is where the picture can have colour; outside it is clear. It is known without drawing. A plain
///   colour and a clamped image have no bounds.
/// - A pixel's middle lies at (x + 0.5, y + 0.5). Enlarging interpolates bilinearly; scaling down averages
///   over what a pixel covers, so nothing aliases.
/// - A picture depends on its graph alone: any canvas, band, thread or instruction set gives the same bytes.
///
/// Copies cost a pointer. Any thread may build, copy and draw images.
class Image {
public:
    /// Nothing: clear everywhere, with an empty extent.
    Image();

    /// One colour without bounds.
    static Image colour(Colour colour);
    /// A bitmap with its top left at the origin. Its pixels must not change any more; `opaque` says that all
    /// of them are known to be.
    static Image bitmap(Bitmap bitmap, bool opaque = false);
    /// A decoded picture, upright, in square pixels, with its top left at the origin. HDR is tone-mapped.
    static Image frame(Frame frame);
    /// A rectangle whose colour goes evenly from `top` down to `bottom`.
    static Image gradient(const Rect& rect, Colour top, Colour bottom);
    /// A rectangle with round corners; the radius in pixels, at most half its shorter side.
    static Image roundedRectangle(const Rect& rect, double radius, Colour colour);
    /// A line of `width` pixels along the edge of such a rectangle, half of it outside.
    static Image roundedOutline(const Rect& rect, double radius, double width, Colour colour);
    /// A picture that is made when it is drawn, perhaps more than once and on any thread; `make` must always
    /// give the same. What of it lies outside `extent` is not shown.
    static Image later(const Rect& extent, std::function<Image()> make);

    Rect extent() const;
    bool empty() const { return extent().empty(); }
    /// Whether it is known to be opaque all over `rect`.
    bool isOpaqueOver(const Rect& rect) const;
    /// Whether both are the very same picture: one graph, not merely graphs that look alike.
    bool isSameAs(const Image& other) const { return root == other.root; }

    /// Only what lies in `rect`. Its edges fall between pixels: those whose middle lies inside stay, so that
    /// pictures which share an edge meet without a gap. Where the result is transformed, the edges turn
    /// smooth.
    Image cropped(const Rect& rect) const;
    /// Moved, scaled, turned. Edges that then cross pixels are smooth, unless the picture is clamped. A
    /// transform that flattens the picture gives nothing.
    Image transformed(const Transform& transform) const;
    /// This image source-over `below`, its colours mixed with those below where a blend says so.
    Image over(const Image& below, Blend blend = Blend::normal) const;
    /// Every channel times the mask's alpha at its place.
    Image masked(const Image& mask) const;
    Image filtered(const Filter& filter) const;
    /// The same picture, drawn once however often a graph shows it: for what is costly and used again. It
    /// keeps pixels for about the size at which it is first seen; enlarged beyond that, it softens.
    Image drawnOnce() const;
    /// The edge pixels repeated outward without end.
    Image clamped() const;
    /// Every channel times `opacity`, which is clamped to 0…1.
    Image faded(double opacity) const;
    /// Smeared along the way from `centre`, half inward and half outward; `amount` is the smear's length in
    /// pixels at half the extent's shorter side from it (of a clamped image, of the picture that it repeats).
    /// 0 changes nothing.
    Image zoomBlurred(Point centre, double amount) const;
    /// Smeared along a line, `radius` pixels to either side; `degrees` clockwise from the x axis.
    Image motionBlurred(double radius, double degrees) const;

    /// The root of its graph, for whoever draws it.
    const std::shared_ptr<const ImageNode>& node() const { return root; }
    explicit Image(std::shared_ptr<const ImageNode> node) : root(std::move(node)) {}

private:
    std::shared_ptr<const ImageNode> root;
};

}
