#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// The camera moves that a shot may have.
enum class ShotMove { push, pull, drift, panLeft, panRight, shake };
constexpr auto rawTexts(ShotMove) {
    return std::array<std::string_view, 6>{"push", "pull", "drift", "pan-left", "pan-right", "shake"};
}

}
