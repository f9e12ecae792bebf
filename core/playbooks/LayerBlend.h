#pragma once

#include "platform/base/RawText.h"
#include "platform/image/Blend.h"

namespace murbo {

/// How a layer may be mixed with those below.
using LayerBlend = Blend;
constexpr auto rawTexts(Blend) {
    return std::array<std::string_view, 6>{"normal", "multiply", "screen", "overlay", "add", "soft"};
}

}
