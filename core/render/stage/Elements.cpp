#include "core/render/stage/Elements.h"

#include "core/render/stage/Effects.h"
#include "core/render/stage/Panels.h"
#include "core/render/stage/Particles.h"
#include "core/render/stage/Shapes.h"
#include "core/render/stage/Slots.h"
#include "platform/text/Unicode.h"

#include <algorithm>
#include <cmath>

namespace murbo::Stage::Elements {
namespace {

/// No look needs more; each one costs as much as a picture.
constexpr std::size_t maxEffects = 16;

/// Bytes of a text that is looked at whether it is emoji alone.
constexpr std::size_t longestSticker = 200;

bool isColourOrNone(const std::string& text) {
    return text.empty() || Colour::hex(text);
}

/// The preset that the layer names, with what it says itself over it. A style's box goes with the style's own
/// letters: under those of another colour it could hide them. An emoji that stands alone has no outline,
/// which would ring it with a disc.
CaptionStyle styleOf(const std::string& text, const Context& context) {
    const auto& presets = context.scene.plan.presets;
    const auto preset = presets.find(context.text(context.layer.style).value_or("pop"));
    CaptionStyle style = preset == presets.end() ? CaptionStyle::builtIn().front() : preset->second;
    const auto take = [&](auto field, const std::optional<std::string>& given) {
        const auto own = context.text(given);
        const bool taken = own && isColourOrNone(*own);
        if (taken) style.*field = own;
        return taken;
    };
    const bool coloured = take(&CaptionStyle::fill, context.layer.color);
    take(&CaptionStyle::outline, context.layer.outline);
    if (!take(&CaptionStyle::pill, context.layer.box) && coloured) style.pill = "";
    if (text.size() <= longestSticker && Unicode::isOnlyEmoji(text)) style.outline = "";
    if (const auto size = context.number(context.layer.size)) style.size = size;
    return style;
}

/// The middle of a picture in the shape of w × h.
Image inShape(const Image& image, double shape) {
    const Rect extent = image.extent();
    const double width = std::min(extent.width, extent.height * shape);
    const double height = std::min(extent.height, extent.width / shape);
    const Point middle = extent.middle();
    return image.cropped({middle.x - width / 2, middle.y - height / 2, width, height});
}

/// A picture in the size that its layer asks for.
LayerPicture sized(const Image& image, const Context& context) {
    const auto& layer = context.layer;
    const Rect extent = image.extent();
    const auto width = context.pixels(layer.w, context.width());
    const auto height = context.pixels(layer.h, context.height());
    const bool covers = layer.fill.value_or(false) || (!width && !height && Slots::readsBelow(context));
    if (covers) return {image, std::max(context.width() / extent.width, context.height() / extent.height)};
    if (width && height) {
        const Image part = inShape(image, *width / *height);
        return {part, *width / part.extent().width};
    }
    if (width) return {image, *width / extent.width};
    if (height) return {image, *height / extent.height};
    return {image};
}

/// How much a layer is enlarged at most, by its own scale and with its playbook.
double enlarged(const Context& context) {
    double max = std::abs(context.number(context.layer.scale).value_or(1));
    if (context.layer.keys)
        for (const auto& key : *context.layer.keys)
            if (key.scale) max = std::max(max, std::abs(*key.scale));
    return max * context.scene.enlarged;
}

/// Letters in `finer` pixels to the one, where the frame may have them.
std::optional<Image> drawnLetters(const std::string& text, double finer, const Context& context) {
    constexpr double widest = 0.86; // of the frame
    if (!context.has(&Budget::pixels, Budget::fewestPixels)) return std::nullopt;
    const auto image = context.scene.media.text(text, styleOf(text, context), context.scene.plan.fonts, finer,
                                                widest * context.width());
    return image && context.takePixels(*image, finer) ? image : std::nullopt;
}

/// Letters that are shown enlarged are drawn larger, or they would blur.
std::optional<Image> letters(const Context& context) {
    const auto& layer = context.layer;
    const auto text = context.text(layer.text);
    if (!text || text->empty()) return std::nullopt;
    double shown = enlarged(context);
    if (layer.w || layer.h || layer.fill.value_or(false)) {
        const auto plain = drawnLetters(*text, 1, context);
        if (!plain) return std::nullopt;
        shown *= std::abs(sized(*plain, context).scale);
    }
    return drawnLetters(*text, shown > 2.5 ? 4 : shown > 1.25 ? 2 : 1, context);
}

std::optional<LayerPicture> scatter(const Context& context) {
    const auto text = context.text(context.layer.particles);
    if (!text) return std::nullopt;
    const double width = context.pixels(context.layer.w, context.width()).value_or(context.width() * 0.08);
    return LayerPicture{.image = Particles::scatter(*text, context, width), .placed = true, .round = true};
}

/// What the layer shows, as it comes.
std::optional<Image> bare(const Context& context) {
    const auto& layer = context.layer;
    if (layer.text) return letters(context);
    const auto text = context.text(layer.image ? layer.image : layer.video ? layer.video : layer.slot);
    if (!text || text->empty()) return std::nullopt;
    return layer.slot ? Slots::picture(*text, context) : Slots::file(*text, context);
}

/// Whether the frame may have one more look of that cost.
bool canLook(const Context& context, std::int64_t cost) {
    return context.takeAll(&Budget::looks, cost);
}

Image withEffects(Image image, const Context& context) {
    if (!context.layer.effects) return image;
    const auto& effects = *context.layer.effects;
    for (std::size_t i = 0; i < std::min(effects.size(), maxEffects); ++i)
        if (canLook(context, Effects::cost(effects[i])))
            image = Effects::apply(effects[i], image, context.held);
    return image;
}

/// The picture without what is like the key in colour.
Image keyedOut(const Image& image, const Context& context) {
    const auto text = context.text(context.layer.key);
    const auto colour = text ? Colour::hex(*text) : std::nullopt;
    const auto cube =
        colour && canLook(context, Budget::costlyLook) ? context.scene.media.cube(*colour) : std::nullopt;
    return cube ? image.filtered(*cube) : image;
}

Image cutOut(const Image& image, const Context& context) {
    const bool cuts = context.layer.cutout.value_or(false) && canLook(context, Budget::costlyLook);
    return cuts ? context.scene.media.cutout(image) : image;
}

bool canBeShown(const LayerPicture& made) {
    return !made.image.empty() && !made.image.extent().isEverything() && std::isfinite(made.scale);
}

bool hasRadius(const Playbook::Layer& layer) {
    return layer.radius.value_or(0) > 0;
}

/// The layer's picture as it comes, before its size is seen to.
std::optional<LayerPicture> pictured(const Context& context) {
    const auto image = bare(context);
    if (!image) return std::nullopt;
    const Image looked = withEffects(cutOut(keyedOut(*image, context), context), context);
    if (!canBeShown({looked})) return std::nullopt;
    auto made = sized(looked, context);
    // What has been cropped to a shape is rounded in that.
    if (!context.layer.text) made.image = Shapes::rounded(made.image, context.layer.radius);
    return made;
}

std::optional<LayerPicture> live(const Context& context) {
    const auto word = context.layer.slot ? context.text(context.layer.slot) : std::nullopt;
    auto made = word ? Panels::picture(*word, context) : std::nullopt;
    if (made)
        made->image =
            Shapes::rounded(cutOut(withEffects(made->image, context), context), context.layer.radius);
    return made;
}

std::optional<LayerPicture> drawn(const Context& context, std::optional<LayerPicture> made) {
    if (made) made->image = withEffects(made->image, context);
    return made;
}

std::optional<LayerPicture> made(const Context& context) {
    if (context.layer.shape) return drawn(context, Shapes::picture(context));
    if (context.layer.particles) return drawn(context, scatter(context));
    auto result = live(context);
    if (!result) result = pictured(context);
    if (result) result->round = hasRadius(context.layer) && !context.layer.text;
    return result;
}

}

std::optional<LayerPicture> picture(const Context& context) {
    auto result = made(context);
    return result && canBeShown(*result) ? result : std::nullopt;
}

}
