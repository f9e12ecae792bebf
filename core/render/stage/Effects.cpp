#include "core/render/stage/Effects.h"

#include "core/playbooks/Words.h"
#include "core/render/stage/Budget.h"
#include "platform/image/filters/Blur.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Comic.h"
#include "platform/image/filters/Glow.h"
#include "platform/image/filters/Pixel.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vhs.h"
#include "platform/image/filters/Vignette.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace murbo::Stage {
namespace {

struct Effect {
    std::string_view word;
    Image (*apply)(const Image& image, double held);
};

/// Filters that look beyond a pixel meet the picture's own edge repeated, not the clear round it.
Image within(const Image& image, const Filter& filter) {
    return image.clamped().filtered(filter).cropped(image.extent());
}

/// The tape's lines run down at 60 pixels a second, its noise changes 30 times a second, round after 97.
Image onTape(const Image& image, double held) {
    const double time = std::isfinite(held) ? held : 0;
    const double picture = std::fmod(std::floor(time * 30), 97);
    return within(image, Filters::Vhs{6, std::fmod(time * 60, 6), std::int64_t(picture)});
}

constexpr std::array<Effect, 14> effects{{
    {"mono", [](const Image& image, double) { return image.filtered(Filters::ColourMatrix::mono()); }},
    {"sepia", [](const Image& image, double) { return image.filtered(Filters::ColourMatrix::sepia(0.9)); }},
    {"blur", [](const Image& image, double) { return within(image, Filters::Blur{18}); }},
    {"glow",
     [](const Image& image, double) {
         return within(image, Filters::Glow{14, 0.9});
     }},
    {"zoom-blur",
     [](const Image& image, double) {
         return image.clamped().zoomBlurred(image.extent().middle(), 24).cropped(image.extent());
     }},
    {"invert", [](const Image& image, double) { return image.filtered(Filters::ColourMatrix::inverted()); }},
    {"pixel",
     [](const Image& image, double) {
         return within(image, Filters::Pixel{24, image.extent().middle()});
     }},
    {"vignette",
     [](const Image& image, double) {
         return image.filtered(Filters::Vignette{1.2, 2});
     }},
    {"comic", [](const Image& image, double) { return within(image, Filters::Comic{}); }},
    {"posterize", [](const Image& image, double) { return image.filtered(Filters::Posterize{6}); }},
    {"bright",
     [](const Image& image, double) { return image.filtered(Filters::ColourMatrix::brightened(0.12)); }},
    {"dark",
     [](const Image& image, double) { return image.filtered(Filters::ColourMatrix::brightened(-0.18)); }},
    {"saturate",
     [](const Image& image, double) { return image.filtered(Filters::ColourMatrix::saturated(1.6)); }},
    {"vhs", onTape},
}};

}

std::int64_t costOf(std::string_view effect) {
    constexpr std::array<std::string_view, 6> costly{"blur", "glow", "zoom-blur", "pixel", "comic", "vhs"};
    return std::find(costly.begin(), costly.end(), effect) == costly.end() ? 1 : Budget::costlyLook;
}

Image apply(std::string_view effect, const Image& image, double held) {
    if (effect.starts_with(PlaybookWords::tint)) {
        const auto colour = Colour::hex(effect.substr(PlaybookWords::tint.size()));
        return colour ? image.filtered(Filters::ColourMatrix::tinted(*colour)) : image;
    }
    for (const auto& each : effects) {
        if (each.word == effect) return each.apply(image, held);
    }
    return image;
}

}
