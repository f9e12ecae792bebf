#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <map>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A title and a summary for each clip, given by a model.
namespace DescribeClips {

using Summaries = std::map<UUID, Clip::Summary>;

/// What a list of entries says of these clips. An entry for another clip, or without a title or a summary, is
/// left out.
Summaries summaries(const nlohmann::json& entries, const std::vector<const Clip*>& clips, const Said& said);

/// Gives the clips their summaries, and each a run.
void apply(const Summaries& summaries, Project& project, const Run& run);

}

}
