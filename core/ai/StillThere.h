#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// What of a reply still holds when the project went on while a model was thinking.
namespace StillThere {

/// The reply with each tag of a line as the project has it now, for lines that were told as another's. A line
/// that is gone is named so that nobody takes it for another.
nlohmann::json tags(const nlohmann::json& reply, const Said& told, const Said& now);

/// The cuts whose clips are still there; generated ones always are.
std::vector<Cut> cuts(std::vector<Cut> cuts, const Said& told, const Project& now);

/// Whether two lists of cuts play the same lines in the same order, however they are trimmed.
bool samePlay(const List<Cut>& one, const List<Cut>& other, const Said& said);

}

}
