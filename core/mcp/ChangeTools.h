#pragma once

#include "core/mcp/MCPContext.h"

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// The tools that change clips and videos. Each throws a Problem with words for the model where nothing of a
/// call holds up; what doesn't in a call that does is named in the answer.
namespace ChangeTools {

using nlohmann::json;

MCPResult describeClips(const json& arguments, Project& project, const Said& said);
MCPResult fixLines(const json& arguments, Project& project, const Said& said);
MCPResult proposeIdeas(const json& arguments, Project& project, const Said& said);
MCPResult makeVideo(const json& arguments, Project& project, const Said& said);
MCPResult setCuts(const json& arguments, Project& project, const Said& said);
MCPResult renameVideo(const json& arguments, Project& project);
MCPResult setShots(const json& arguments, Project& project, const Said& said, const MCPContext& context);
MCPResult setCaptions(const json& arguments, Project& project, const Said& said);
MCPResult setSounds(const json& arguments, Project& project, const Said& said, const MCPContext& context);

}

}
