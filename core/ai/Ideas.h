#pragma once

#include "core/ai/Reading.h"

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// Videos worth making, proposed by a model.
namespace Ideas {

/// A text that holds something besides blanks and line breaks, as it stands, as far as a text of
/// a project can be long; nothing for any other value.
std::optional<std::string> text(const nlohmann::json& value);

/// The same for a member of an object; nothing where it isn't there.
std::optional<std::string> text(const nlohmann::json& object, const char* name);

/// The task, in the words that the model gets.
std::string instructions(Video::Aspect aspect);

/// The conversation that leads to ideas; the instruction may be missing.
Reading reading(const std::vector<UUID>& scope, const std::vector<UUID>& given,
                const std::optional<std::string>& instruction, Video::Aspect aspect, const Project& project);

/// The ideas of a final reply. One without cuts that hold up is left out.
std::vector<Idea> ideas(const nlohmann::json& object, const Reading& from,
                        const std::optional<std::string>& instruction, const Run& run);

}

}
