#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Clip.h"

namespace murbo {

struct Project;

/// What there is to say about a clip.
namespace ClipRows {

InspectorRowList of(const Clip& clip, const Project& project);

/// What several clips have in common.
InspectorRowList ofSeveral(const std::vector<UUID>& clips, const Project& project);

/// The rating at a place of its choice: 1, -1 or none.
std::optional<std::int64_t> ratingAt(int place);

}

}
