#pragma once

#include "core/mcp/MCPTool.h"

namespace murbo {

namespace MCPArguments {

/// Holds the arguments of a call against the catalogue. Throws a Problem that says what is wanted and shows a
/// right call.
void check(const MCPTool& tool, const nlohmann::json& arguments);

inline constexpr std::size_t maxTextBytes = 20'000; ///< of one text; a playbook's JSON has a bound of its own
inline constexpr std::size_t maxEntries = 5'000;    ///< of one list

}

}
