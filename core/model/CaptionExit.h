#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// How captions leave beside the entrances played backwards.
enum class CaptionExit { none, fade, pop, sink };
constexpr auto rawTexts(CaptionExit) {
    return std::array<std::string_view, 4>{"none", "fade", "pop", "sink"};
}

}
