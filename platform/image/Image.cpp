#include "platform/image/Image.h"

#include "platform/image/ImageNode.h"

#include <cmath>
#include <vector>

namespace murbo {
namespace {

using Node = ImageNode;
using NodeRef = ImageNode::Ref;

double area(const Rect& rect) {
    return rect.empty() ? 0 : rect.width * rect.height;
}

bool finite(const Rect& rect) {
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) &&
           std::isfinite(rect.height);
}

bool finite(const Transform& transform) {
    return std::isfinite(transform.a) && std::isfinite(transform.b) && std::isfinite(transform.c) &&
           std::isfinite(transform.d) && transform.invertible();
}

Rect grown(const Rect& rect, double x, double y) {
    if (rect.isEverything() || rect.empty()) return rect;
    return {rect.x - x, rect.y - y, rect.width + 2 * x, rect.height + 2 * y};
}

/// Of two rectangles the one with the larger area.
Rect larger(const Rect& one, const Rect& other) {
    return area(one) >= area(other) ? one : other;
}

Rect scaledFrom(const Rect& rect, Point centre, double scale) {
    return Transform()
        .translated(-centre.x, -centre.y)
        .scaled(scale, scale)
        .translated(centre.x, centre.y)
        .apply(rect);
}

const NodeRef& nothing() {
    static const NodeRef node =
        std::make_shared<Node>(Node::Fill{Colour::clear}, Rect{}, Rect{}, Rect{}, true);
    return node;
}

template <typename Kind>
NodeRef made(Kind kind, Rect extent, Rect body, Rect opaque, bool single) {
    return std::make_shared<Node>(std::move(kind), extent, body, opaque, single);
}

}

Image::Image() : root(nothing()) {}

Rect Image::extent() const {
    return root->extent;
}

bool Image::isOpaqueOver(const Rect& rect) const {
    return root->opaque.contains(rect);
}

Image Image::colour(Colour colour) {
    if (colour.alpha == 0) return {};
    const Rect all = Rect::everything();
    return Image(made(Node::Fill{colour}, all, all, colour.alpha == 255 ? all : Rect{}, true));
}

Image Image::bitmap(Bitmap bitmap, bool opaque) {
    if (bitmap.empty()) return {};
    const int air = opaque ? 0 : bitmap.air();
    const Rect extent{0, 0, double(bitmap.width()), double(bitmap.height())};
    return Image(made(Node::BitmapPixels{std::move(bitmap), opaque, air}, extent, extent,
                      opaque ? extent : Rect{}, true));
}

Image Image::frame(Frame frame) {
    if (frame.width <= 0 || frame.height <= 0 || !frame.planes[0]) return {};
    const Size size = frame.uprightSize();
    const Rect extent{0, 0, size.width, size.height};
    const Rect opaque = frame.hasAlpha ? Rect{} : extent;
    return Image(made(Node::FramePixels{std::move(frame)}, extent, extent, opaque, true));
}

Image Image::later(const Rect& extent, std::function<Image()> make) {
    if (extent.empty() || !finite(extent) || !make) return {};
    const auto makeNode = [make = std::move(make)] { return make().root; };
    return Image(made(Node::Later{makeNode}, extent, extent, Rect{}, false));
}

Image Image::cropped(const Rect& rect) const {
    if (!finite(rect)) return {};
    if (rect.contains(extent())) return *this;
    if (const auto* crop = std::get_if<Node::Crop>(&root->kind))
        return Image(crop->of).cropped(crop->rect.intersection(rect));
    const Rect extent = root->extent.intersection(rect);
    if (extent.empty()) return {};
    return Image(made(Node::Crop{root, rect}, extent, root->body.intersection(rect),
                      root->opaque.intersection(rect), root->single));
}

Image Image::transformed(const Transform& transform) const {
    if (!finite(transform)) return {};
    if (transform == Transform() || empty() || std::holds_alternative<Node::Fill>(root->kind)) return *this;
    if (const auto* move = std::get_if<Node::Transformed>(&root->kind))
        return Image(move->of).transformed(move->transform.then(transform));
    const bool upright = transform.keepsAxes();
    const Rect opaque = upright || root->opaque.isEverything() ? transform.apply(root->opaque) : Rect{};
    return Image(made(Node::Transformed{root, transform}, transform.apply(root->extent),
                      transform.apply(root->body), opaque, root->single && upright));
}

Image Image::over(const Image& below, Blend blend) const {
    if (empty()) return below;
    if (below.empty()) return *this;
    if (blend == Blend::normal && root->opaque.contains(below.extent())) return *this;
    return Image(made(Node::Over{root, below.root, blend}, extent().united(below.extent()),
                      root->body.united(below.root->body), larger(root->opaque, below.root->opaque), false));
}

Image Image::clamped() const {
    if (empty() || extent().isEverything()) return *this;
    // A filter that changes each pixel by itself changes the repeated ones alike.
    std::vector<const Filter*> filters;
    NodeRef picture = root;
    while (const auto* filtered = std::get_if<Node::Filtered>(&picture->kind)) {
        if (!filtered->filter.byPixel()) break;
        filters.push_back(&filtered->filter);
        picture = filtered->of;
    }
    if (picture != root) {
        Image repeated = Image(picture).clamped();
        for (auto at = filters.rbegin(); at != filters.rend(); ++at) repeated = repeated.filtered(**at);
        return repeated;
    }
    const Rect all = Rect::everything();
    const bool solid = root->opaque.contains(extent());
    return Image(made(Node::Clamp{root}, all, root->body, solid ? all : Rect{}, root->single));
}

Image Image::faded(double opacity) const {
    if (!(opacity > 0)) return {};
    if (opacity >= 1 || empty()) return *this;
    if (const auto* fade = std::get_if<Node::Fade>(&root->kind))
        return Image(fade->of).faded(fade->opacity * opacity);
    return Image(made(Node::Fade{root, opacity}, extent(), root->body, Rect{}, root->single));
}

Image Image::masked(const Image& mask) const {
    const Node& shape = *mask.root;
    if (shape.opaque.contains(extent())) return *this;
    const Rect shown = extent().intersection(shape.extent);
    if (shown.empty()) return {};
    return Image(made(Node::Mask{root, mask.root}, shown, root->body.intersection(shape.extent),
                      root->opaque.intersection(shape.opaque), false));
}

Image Image::filtered(const Filter& given) const {
    const auto filter = given.clamped(root->body);
    if (empty() || !filter) return *this;
    // Outside the crop it is clear and stays so; with the crop outermost, filters in a row can be joined.
    const auto* crop = std::get_if<Node::Crop>(&root->kind);
    if (crop && filter->byPixel()) return Image(crop->of).filtered(*filter).cropped(crop->rect);
    const double reach = filter->reach();
    // A filter that spreads draws in the clear pixels round a picture, unless there are none.
    const bool staysOpaque = filter->keepsOpaque() || (reach > 0 && root->opaque.isEverything());
    const Rect opaque = staysOpaque ? root->opaque : Rect{};
    const Rect body = extent().isEverything() ? root->body : grown(root->body, reach, reach);
    return Image(made(Node::Filtered{root, *filter}, grown(extent(), reach, reach), body, opaque, false));
}

Image Image::drawnOnce() const {
    if (const auto* clamp = std::get_if<Node::Clamp>(&root->kind))
        return Image(clamp->of).drawnOnce().clamped();
    const bool plain =
        std::holds_alternative<Node::Fill>(root->kind) || std::holds_alternative<Node::Once>(root->kind);
    if (empty() || extent().isEverything() || plain) return *this;
    const Rect all = extent();
    const bool single = root->single || PixelRect::touching(all).rect() == all;
    // On a coarser grid the edge of an opaque part lies elsewhere, and edges that don't repeat are smooth.
    const Rect opaque = single && root->opaque.contains(all) ? all : Rect{};
    return Image(made(Node::Once{root, std::make_shared<TileCache>()}, all, root->body, opaque, single));
}

Image Image::zoomBlurred(Point centre, double amount) const {
    const double reach = std::min(root->body.width, root->body.height) * 0.5;
    if (empty() || root->body.isEverything() || !(amount > 0) || !(reach > 0)) return *this;
    // No smear needs to be longer than the distance to the centre.
    const double spread = std::min(amount / reach, 1.0);
    const double outward = std::exp(spread / 2);
    const Rect all = extent();
    const Rect smeared =
        all.united(scaledFrom(all, centre, outward)).united(scaledFrom(all, centre, 1 / outward));
    return Image(made(Node::ZoomBlur{root, centre, spread}, smeared, root->body,
                      root->opaque.isEverything() ? root->opaque : Rect{}, false));
}

Image Image::motionBlurred(double radius, double degrees) const {
    if (empty() || root->body.isEverything() || !(radius > 0) || !std::isfinite(degrees)) return *this;
    const Point reach = Transform().rotated(degrees).apply(Point{std::min(radius, 4096.0), 0});
    return Image(made(Node::MotionBlur{root, reach}, grown(extent(), std::abs(reach.x), std::abs(reach.y)),
                      root->body, root->opaque.isEverything() ? root->opaque : Rect{}, false));
}

}
