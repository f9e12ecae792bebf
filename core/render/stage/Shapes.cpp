#include "core/render/stage/Shapes.h"

#include "core/playbooks/LayerShape.h"

#include <algorithm>

namespace murbo::Stage::Shapes {
namespace {

std::optional<Colour> colourOf(const std::optional<std::string>& text) {
    return text ? Colour::hex(*text) : std::nullopt;
}

Rect rectOf(const Context& context) {
    const auto& layer = context.layer;
    if (layer.fill.value_or(false)) return context.frame();
    const auto width = context.pixels(layer.w, context.width());
    const auto height = context.pixels(layer.h, context.height());
    return {0, 0, width.value_or(context.width() * 0.5),
            height.value_or(width.value_or(context.height() * 0.1))};
}

Image ring(const Rect& rect, double side, Colour colour) {
    const double in = side * 0.04;
    const Rect line{rect.x + in, rect.y + in, rect.width - 2 * in, rect.height - 2 * in};
    return Image::roundedOutline(line, side * 0.46, side * 0.06, colour);
}

/// Half the shorter side at most.
double radiusOf(const Context& context) {
    return std::clamp(context.layer.radius.value_or(0.2), 0.0, 0.5);
}

/// What a layer says that names no shape stays a rectangle of one colour.
std::optional<LayerShape> shapeOf(const Context& context) {
    const auto word = context.text(context.layer.shape);
    return word ? fromRawText<LayerShape>(*word) : LayerShape::rect;
}

Image plain(const Rect& rect, Colour colour) {
    return Image::colour(colour).cropped(rect);
}

Image rectangle(const Rect& rect, Colour colour, const Context& context) {
    const auto bottom = colourOf(context.text(context.layer.gradient));
    return bottom ? Image::gradient(rect, colour, *bottom) : plain(rect, colour);
}

Image drawn(LayerShape shape, const Rect& rect, Colour colour, const Context& context) {
    const double side = std::min(rect.width, rect.height);
    switch (shape) {
        case LayerShape::rect:
            return rectangle(rect, colour, context);
        case LayerShape::round:
            return Image::roundedRectangle(rect, side * radiusOf(context), colour);
        case LayerShape::circle:
            return Image::roundedRectangle(rect, side * 0.5, colour);
        case LayerShape::ring:
            return ring(rect, side, colour);
    }
    return {};
}

}

std::optional<LayerPicture> picture(const Context& context) {
    const Rect rect = rectOf(context);
    if (rect.empty() || rect.width > largestSide || rect.height > largestSide) return std::nullopt;
    const auto named = shapeOf(context);
    const auto colour = colourOf(context.text(context.layer.color)).value_or(Colour::white);
    return LayerPicture{.image = named ? drawn(*named, rect, colour, context) : plain(rect, colour),
                        .placed = context.layer.fill.value_or(false),
                        .round = named && *named != LayerShape::rect};
}

Image rounded(const Image& image, std::optional<double> radius) {
    const Rect extent = image.extent();
    if (!radius || !(*radius > 0) || extent.isEverything() || extent.empty()) return image;
    const double side = std::min(extent.width, extent.height);
    return image.masked(Image::roundedRectangle(extent, side * std::min(*radius, 0.5), Colour::white));
}

}
