#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Said.h"
#include "core/ai/SoundsByTag.h"
#include "core/model/Project.h"

#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A video's sound effects, chosen by a model in one request.
namespace SoundKit {

/// The task, in the words that the model gets.
std::string instructions();

/// The request. `library` names the sounds on offer by folder and file.
Ask ask(const Video& video, const Project& project, const Said& said,
        const std::vector<std::string>& library);

/// The files that a reply names.
std::vector<std::string> files(const nlohmann::json& object);

/// Carries out what a reply asks for. Gives what was done and what was left out, in words; throws a Problem,
/// the project as it was, where nothing of it can be used. A reply without a list of sounds changes nothing:
/// it would take the owner's away.
std::string apply(const nlohmann::json& object, const UUID& video, Project& project,
                  const SoundsByTag::Library& sounds, const Run& run);

}

}
