#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Brief.h"
#include "core/ai/Price.h"
#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <map>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A title and a summary for each clip, given by a model.
namespace DescribeClips {

using Summaries = std::map<UUID, Clip::Summary>;

/// Clips in order, in batches that one request can hold.
std::vector<Brief::Clips> batches(const Brief::Clips& clips);

/// The request that describes a batch.
Ask ask(const Brief::Clips& clips, const Project& project, const Said& said);

/// About what describing these clips costs, in dollars.
double estimate(const Price& price, const Brief::Clips& clips, const Project& project, const Said& said);

/// What a whole reply says of these clips.
Summaries read(std::string_view reply, const Brief::Clips& clips, const Said& said);

/// What a list of entries says of these clips. An entry for another clip, or without a title or a summary, is
/// left out.
Summaries summaries(const nlohmann::json& entries, const std::vector<const Clip*>& clips, const Said& said);

/// Gives the clips their summaries, and each a run.
void apply(const Summaries& summaries, Project& project, const Run& run);

}

}
