#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// How layers, overlays and captions may come in; an exit is an entrance played backwards.
enum class Entrance {
    none,
    fade,
    pop,
    zoom,
    slideLeft,
    slideRight,
    slideUp,
    slideDown,
    drop,
    spin,
    stamp,
    wipe
};
constexpr auto rawTexts(Entrance) {
    return std::array<std::string_view, 12>{"none",       "fade",        "pop",      "zoom",
                                            "slide-left", "slide-right", "slide-up", "slide-down",
                                            "drop",       "spin",        "stamp",    "wipe"};
}

}
