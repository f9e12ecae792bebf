#include "platform/image/Image.h"
#include "platform/image/ImageNode.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

using Node = ImageNode;

/// Whether a shape's places can be told apart in numbers.
bool countable(const Rect& rect, double length) {
    const double values[] = {rect.x, rect.y, rect.width, rect.height, length};
    return !rect.empty() &&
           std::all_of(values, values + 5, [](double value) { return std::abs(value) < 1e12; });
}

}

Image Image::gradient(const Rect& rect, Colour top, Colour bottom) {
    if (!countable(rect, 0) || rect.height < 1e-9) return {};
    if (top == bottom) return colour(top).cropped(rect);
    const Rect all = Rect::everything();
    const bool solid = top.alpha == 255 && bottom.alpha == 255;
    return Image(std::make_shared<Node>(Node::Gradient{rect.y, rect.bottom(), top, bottom}, all, all,
                                        solid ? all : Rect{}, false))
        .cropped(rect);
}

Image Image::roundedRectangle(const Rect& rect, double radius, Colour filling) {
    if (!countable(rect, radius) || filling.alpha == 0) return {};
    const double corner = std::clamp(radius, 0.0, std::min(rect.width, rect.height) / 2);
    if (corner == 0) return colour(filling).cropped(rect);
    const Node::RoundedRectangle shape{rect, corner, 0, filling};
    const Rect opaque = filling.alpha == 255 ? shape.solid() : Rect{};
    return Image(std::make_shared<Node>(shape, rect, rect, opaque, false));
}

Image Image::roundedOutline(const Rect& rect, double radius, double width, Colour line) {
    if (!countable(rect, radius) || !(width > 0 && width < 1e12) || line.alpha == 0) return {};
    const double corner = std::clamp(radius, 0.0, std::min(rect.width, rect.height) / 2);
    const Rect extent{rect.x - width / 2, rect.y - width / 2, rect.width + width, rect.height + width};
    return Image(std::make_shared<Node>(Node::RoundedRectangle{rect, corner, width, line}, extent, extent,
                                        Rect{}, false));
}

}
