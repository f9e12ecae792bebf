#include "core/render/stage/Panels.h"

#include "core/model/Source.h"
#include "core/render/plan/Crop.h"

#include <algorithm>

namespace murbo::Stage::Panels {
namespace {

/// The panel's size in the frame. Where only the width is given, the height follows the footage's area.
Size panelSize(const Context& context, const Rect& area) {
    const auto& layer = context.layer;
    if (layer.fill.value_or(false)) return {context.width(), context.height()};
    const auto width = context.pixels(layer.w, context.width());
    const auto height = context.pixels(layer.h, context.height());
    const double following = width ? area.height * *width / std::max(area.width, 1.0) : context.height();
    return {width.value_or(context.width()), height.value_or(following)};
}

bool canBeShown(Size size) {
    return size.width > 0 && size.height > 0 && size.width < largestSide && size.height < largestSide;
}

/// What of the footage the panel shows: the shot's zoom and focus, where it follows the shot.
Rect cropOf(const std::string& word, const Rect& area, Size picture, Size target, const Context& context) {
    const bool follows = context.layer.shot.value_or(false);
    const double zoom = follows ? context.placed.zoom : 1;
    const auto focus = follows ? context.placed.focus : std::nullopt;
    if (word != "face") return Crop::within(area, target, zoom, focus);
    return Crop::face(context.scene.framing, picture, target, zoom, focus);
}

std::optional<Rect> areaOf(const std::string& word, Size picture, const Framing& framing) {
    if (word == "face") return Crop::scaled(framing.face, picture);
    if (word == "content") return Crop::scaled(framing.content, picture);
    if (word == "picture") return Rect{0, 0, picture.width, picture.height};
    return std::nullopt;
}

}

std::optional<LayerPicture> picture(const std::string& word, const Context& context) {
    if (!context.scene.source) return std::nullopt;
    const auto extent = context.scene.source->extent();
    const Size picture{extent.width, extent.height};
    const auto area = areaOf(word, picture, context.scene.framing);
    if (!area) return std::nullopt;
    const Size size = panelSize(context, *area);
    if (!canBeShown(size)) return LayerPicture{};
    const Rect crop = cropOf(word, *area, picture, size, context);
    const auto image = context.scene.source->clamped()
                           .transformed(Transform().translated(-extent.x - crop.x, -extent.y - crop.y))
                           .cropped({0, 0, crop.width, crop.height});
    return LayerPicture{.image = image, .scale = size.width / std::max(crop.width, 1.0)};
}

}
