#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// What the tags in a call name, and what names a place in an answer.
namespace MCPTags {

/// The video of a tag. Throws a Problem that names those there are.
const Video& video(const nlohmann::json& tag, const Project& project);

/// The clips of a list of tags. Throws a Problem.
std::vector<const Clip*> clips(const nlohmann::json& tags, const Project& project);

/// The line under a second of a source, or the nearest one with the distance: "C14.03", "C14.03 + 1.5 s".
/// Nothing where nothing is said on the source.
std::optional<std::string> line(double second, const UUID& source, const Said& said);

}

}
