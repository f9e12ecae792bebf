#include "core/render/stage/Effects.h"

#include "core/playbooks/Effect.h"
#include "core/render/stage/Budget.h"
#include "platform/image/filters/Blur.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Comic.h"
#include "platform/image/filters/Glow.h"
#include "platform/image/filters/Pixel.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vhs.h"
#include "platform/image/filters/Vignette.h"

#include <cmath>

namespace murbo::Stage::Effects {
namespace {

/// Filters that look beyond a pixel meet the picture's own edge repeated, not the clear round it.
Image within(const Image& image, const Filter& filter) {
    return image.clamped().filtered(filter).cropped(image.extent());
}

/// The tape's lines run down at 60 pixels a second, its noise changes 30 times a second and comes round
/// after 97.
Image onTape(const Image& image, double held) {
    const double time = std::isfinite(held * 60) ? held : 0;
    const double picture = std::fmod(std::floor(time * 30), 97);
    return within(image, Filters::Vhs{6, std::fmod(time * 60, 6), std::int64_t(picture)});
}

Image zoomed(const Image& image) {
    return image.clamped().zoomBlurred(image.extent().middle(), 24).cropped(image.extent());
}

/// The colour follows the word; without one the picture stays as it is.
Image tinted(const Image& image, std::string_view word) {
    const auto colour = Colour::hex(word.substr(tintWord.size()));
    return colour ? image.filtered(Filters::ColourMatrix::tinted(*colour)) : image;
}

Image under(Effect effect, std::string_view word, const Image& image, double held) {
    switch (effect) {
        case Effect::mono:
            return image.filtered(Filters::ColourMatrix::mono());
        case Effect::sepia:
            return image.filtered(Filters::ColourMatrix::sepia(0.9));
        case Effect::vhs:
            return onTape(image, held);
        case Effect::blur:
            return within(image, Filters::Blur{18});
        case Effect::glow:
            return within(image, Filters::Glow{14, 0.9});
        case Effect::zoomBlur:
            return zoomed(image);
        case Effect::invert:
            return image.filtered(Filters::ColourMatrix::inverted());
        case Effect::pixel:
            return within(image, Filters::Pixel{24, image.extent().middle()});
        case Effect::vignette:
            return image.filtered(Filters::Vignette{1.2, 2});
        case Effect::comic:
            return within(image, Filters::Comic{});
        case Effect::posterize:
            return image.filtered(Filters::Posterize{6});
        case Effect::bright:
            return image.filtered(Filters::ColourMatrix::brightened(0.12));
        case Effect::dark:
            return image.filtered(Filters::ColourMatrix::brightened(-0.18));
        case Effect::saturate:
            return image.filtered(Filters::ColourMatrix::saturated(1.6));
        case Effect::tint:
            return tinted(image, word);
    }
    return image;
}

/// Whether it looks far round every pixel.
bool isCostly(Effect effect) {
    switch (effect) {
        case Effect::vhs:
        case Effect::blur:
        case Effect::glow:
        case Effect::zoomBlur:
        case Effect::pixel:
        case Effect::comic:
            return true;
        case Effect::mono:
        case Effect::sepia:
        case Effect::invert:
        case Effect::vignette:
        case Effect::posterize:
        case Effect::bright:
        case Effect::dark:
        case Effect::saturate:
        case Effect::tint:
            return false;
    }
    return true;
}

}

std::int64_t cost(std::string_view word) {
    const auto effect = effectNamed(word);
    return effect && isCostly(*effect) ? Budget::costlyLook : 1;
}

Image apply(std::string_view word, const Image& image, double held) {
    const auto effect = effectNamed(word);
    return effect ? under(*effect, word, image, held) : image;
}

}
