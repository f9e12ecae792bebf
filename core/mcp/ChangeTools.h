#pragma once

#include "core/mcp/MCPCalls.h"

namespace murbo {

/// The tools that change clips and videos. Each throws a Problem with words for the model where nothing of a
/// call holds up; what doesn't in a call that does is named in the answer.
namespace ChangeTools {

using MCPCalls::Context;
using MCPCalls::Result;
using nlohmann::json;

Result describeClips(const json& arguments, Project& project, const Said& said);
Result fixLines(const json& arguments, Project& project, const Said& said);
Result proposeIdeas(const json& arguments, Project& project, const Said& said);
Result makeVideo(const json& arguments, Project& project, const Said& said);
Result setCuts(const json& arguments, Project& project, const Said& said);
Result renameVideo(const json& arguments, Project& project);
Result setShots(const json& arguments, Project& project, const Said& said, const Context& context);
Result setCaptions(const json& arguments, Project& project, const Said& said);
Result setSounds(const json& arguments, Project& project, const Said& said, const Context& context);

}

}
