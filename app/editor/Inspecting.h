#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// Which side the inspector follows.
enum class Inspecting { browser, timeline };
constexpr auto rawTexts(Inspecting) {
    return std::array<std::string_view, 2>{"browser", "timeline"};
}

}
