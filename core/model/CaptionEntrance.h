#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// How captions come in beside the entrances that all have.
enum class CaptionEntrance { none, pop, fade, words, rise };
constexpr auto rawTexts(CaptionEntrance) {
    return std::array<std::string_view, 5>{"none", "pop", "fade", "words", "rise"};
}

}
