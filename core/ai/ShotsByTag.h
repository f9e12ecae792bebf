#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <cstdint>
#include <map>
#include <string>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

namespace ShotsByTag {

/// Layout playbooks that shots may use, with their versions.
using Layouts = std::map<std::string, std::int64_t>;

/// Replaces a video's shots by those that a model asks for by line. What doesn't hold up is left out. The
/// answer says how many there are now and what was left out; where nothing holds up it is thrown as a
/// Problem. A shot that stood at its place keeps what models can't name (focus, ease, transition …).
std::string replace(Project& project, const UUID& video, const nlohmann::json& shots, const Said& said,
                    const Layouts& layouts, const Run& run);

}

}
