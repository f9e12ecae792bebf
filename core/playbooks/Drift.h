#pragma once

#include "platform/base/RawText.h"

namespace murbo {

/// The ways that particles may take.
enum class Drift { rise, fall, burst, floating };
constexpr auto rawTexts(Drift) {
    return std::array<std::string_view, 4>{"rise", "fall", "burst", "float"};
}

}
