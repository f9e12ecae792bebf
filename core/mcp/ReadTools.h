#pragma once

#include "core/mcp/MCPCalls.h"

namespace murbo {

/// The tools that read. Each throws a Problem with words for the model.
namespace ReadTools {

using MCPCalls::Context;
using MCPCalls::Result;
using nlohmann::json;

Result overview(const Project& project, const Said& said);
Result readClips(const json& arguments, const Project& project, const Said& said);
Result searchLines(const json& arguments, const Project& project, const Said& said);
Result readVideo(const json& arguments, const Project& project, const Said& said);
Result readLoudness(const json& arguments, const Project& project, const Said& said, const Context& context);
Result listBookmarks(const Project& project, const Said& said);
Result whatChanged(const json& arguments, const Project& project, const Said& said, const Context& context);

}

}
