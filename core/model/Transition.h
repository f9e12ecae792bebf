#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// How a shot may come in after the one before.
enum class Transition { flash, dip, blur, whip, glitch };
constexpr auto rawTexts(Transition) {
    return std::array<std::string_view, 5>{"flash", "dip", "blur", "whip", "glitch"};
}

}
