#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// The curves that a movement may follow. Without one it is smooth.
enum class EaseCurve { smooth, linear, snap, bounce };
constexpr auto rawTexts(EaseCurve) {
    return std::array<std::string_view, 4>{"smooth", "linear", "snap", "bounce"};
}

}
