#pragma once

#include <array>
#include <string_view>

/// The words that a playbook may use: what the check holds it against and what the guide prints.
namespace murbo::PlaybookWords {

using Word = std::string_view;

inline constexpr std::array<Word, 6> types{"text", "colour", "number", "choice", "toggle", "media"};
inline constexpr std::array<Word, 4> shapes{"rect", "round", "circle", "ring"};
inline constexpr std::array<Word, 4> drifts{"rise", "fall", "burst", "float"};
inline constexpr std::array<Word, 6> blends{"normal", "multiply", "screen", "overlay", "add", "soft"};
inline constexpr std::array<Word, 12> enters{"none",       "fade",        "pop",      "zoom",
                                             "slide-left", "slide-right", "slide-up", "slide-down",
                                             "drop",       "spin",        "stamp",    "wipe"};
inline constexpr std::array<Word, 8> holds{"none",  "wobble", "float", "pulse",
                                           "shake", "drift",  "spin",  "sway"};
inline constexpr std::array<Word, 4> eases{"smooth", "linear", "snap", "bounce"};
inline constexpr std::array<Word, 15> effects{"mono",      "sepia",  "vhs",   "blur",     "glow",
                                              "zoom-blur", "invert", "pixel", "vignette", "comic",
                                              "posterize", "bright", "dark",  "saturate", "tint:RRGGBB"};

/// What a layer can be, each the key that says so.
inline constexpr std::array<Word, 7> contents{"image",     "video", "text", "shape",
                                              "particles", "slot",  "sound"};

/// An effect that carries its own colour.
inline constexpr Word tint = "tint:";

}
