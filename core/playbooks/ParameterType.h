#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// What a parameter of a playbook may be filled in with.
enum class ParameterType { text, colour, number, choice, toggle, media };
constexpr auto rawTexts(ParameterType) {
    return std::array<std::string_view, 6>{"text", "colour", "number", "choice", "toggle", "media"};
}

}
