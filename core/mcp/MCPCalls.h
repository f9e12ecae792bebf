#pragma once

#include "core/mcp/MCPContext.h"
#include "core/mcp/MCPTool.h"
#include "core/model/Project.h"

#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Carries out the tools of AI apps on a project value. It knows nothing of sockets, permissions or sessions.
namespace MCPCalls {

/// Runs a tool. Throws a Problem with words for the model; the project is as it was then. The tools that need
/// the program's library are not answered here.
MCPResult call(std::string_view name, const nlohmann::json& arguments, Project& project,
               const MCPContext& context);

/// Whether a tool needs the program's library, and so is the host's.
bool isInApp(MCPTool::ToolID tool);

/// The words for a tool that nobody has heard of.
std::string unknown(std::string_view name);

}

}
