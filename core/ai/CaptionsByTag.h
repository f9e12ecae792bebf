#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <string>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

namespace CaptionsByTag {

/// Which lines of a video a model wants big, hidden and broken by hand; each a list or JSON's null.
struct Wishes {
    const nlohmann::json& big;
    const nlohmann::json& hidden;
    const nlohmann::json& breaks;
};

/// Replaces what was chosen before by what a model asks for; the rest of the captions (times, places,
/// stressed words) stays. What doesn't hold up is left out. The answer says what there is now and what was
/// left out.
std::string replace(Project& project, const UUID& video, const Wishes& wishes, const Said& said,
                    const Run& run);

}

}
