#pragma once

#include <array>
#include <string_view>

namespace murbo {

enum class InspectorTab { inspector, transcript, captions, ask, mcp };
constexpr auto rawTexts(InspectorTab) {
    return std::array<std::string_view, 5>{"inspector", "transcript", "captions", "ask", "mcp"};
}

}
