#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// The shapes that a layer may be.
enum class LayerShape { rect, round, circle, ring };
constexpr auto rawTexts(LayerShape) {
    return std::array<std::string_view, 4>{"rect", "round", "circle", "ring"};
}

}
