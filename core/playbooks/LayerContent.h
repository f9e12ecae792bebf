#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// What a layer may be, each the key that says so.
enum class LayerContent { image, video, text, shape, particles, slot, sound };
constexpr auto rawTexts(LayerContent) {
    return std::array<std::string_view, 7>{"image", "video", "text", "shape", "particles", "slot", "sound"};
}

}
