#pragma once

#include <array>
#include <string_view>

namespace murbo {

/// What a press on the timeline does.
enum class EditingTool { select, trim, blade, hand };
constexpr auto rawTexts(EditingTool) {
    return std::array<std::string_view, 4>{"select", "trim", "blade", "hand"};
}

}
