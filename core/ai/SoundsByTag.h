#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <map>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

namespace SoundsByTag {

/// Sounds of the library by the names that models know them by, with their paths in the project.
using Library = std::map<std::string, std::string>;

/// The files that a list of sounds names, as given, each once.
std::vector<std::string> named(const nlohmann::json& sounds);

/// The name by which a model knows a sound: its file's name.
std::string shownName(const SoundCue& cue);

/// Replaces a video's sounds by those that a model asks for by line. What doesn't hold up is left out. The
/// answer says how many there are now and what was left out; where none of those asked for holds up it is
/// thrown as a Problem. A sound that stood at its place keeps what models can't name (its mute, its length
/// …).
std::string replace(Project& project, const UUID& video, const nlohmann::json& sounds, const Said& said,
                    const Library& library, const Run& run);

}

}
