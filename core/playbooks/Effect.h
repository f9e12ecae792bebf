#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// What can be done to the picture of a layer.
enum class Effect {
    mono,
    sepia,
    vhs,
    blur,
    glow,
    zoomBlur,
    invert,
    pixel,
    vignette,
    comic,
    posterize,
    bright,
    dark,
    saturate,
    tint
};
constexpr auto rawTexts(Effect) {
    return std::array<std::string_view, 15>{"mono",      "sepia",  "vhs",   "blur",     "glow",
                                            "zoom-blur", "invert", "pixel", "vignette", "comic",
                                            "posterize", "bright", "dark",  "saturate", "tint:RRGGBB"};
}

/// What a tint begins with; its colour follows.
inline constexpr std::string_view tintWord = "tint:";

/// The effect that a word asks for; of a tint the colour is not looked at.
constexpr std::optional<Effect> effectNamed(std::string_view word) {
    return word.starts_with(tintWord) ? Effect::tint : fromRawText<Effect>(word);
}

}
