#pragma once

#include "core/mcp/MCPContext.h"

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// The tools that read. Each throws a Problem with words for the model.
namespace ReadTools {

using nlohmann::json;

MCPResult overview(const Project& project, const Said& said);
MCPResult readClips(const json& arguments, const Project& project, const Said& said);
MCPResult searchLines(const json& arguments, const Project& project, const Said& said);
MCPResult readVideo(const json& arguments, const Project& project, const Said& said);
MCPResult readLoudness(const json& arguments, const Project& project, const Said& said,
                       const MCPContext& context);
MCPResult listBookmarks(const Project& project, const Said& said);
MCPResult whatChanged(const json& arguments, const Project& project, const Said& said,
                      const MCPContext& context);

}

}
