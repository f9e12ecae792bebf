#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// How a layer may move while it is on.
enum class Hold { none, wobble, floating, pulse, shake, drift, spin, sway };
constexpr auto rawTexts(Hold) {
    return std::array<std::string_view, 8>{"none",  "wobble", "float", "pulse",
                                           "shake", "drift",  "spin",  "sway"};
}

}
