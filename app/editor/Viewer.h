#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// Which player has the keys.
enum class Viewer { source, video };
constexpr auto rawTexts(Viewer) {
    return std::array<std::string_view, 2>{"source", "video"};
}

}
