#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <functional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// What the changes of a video by tag have in common. A change is made whole or throws a Problem with the
/// project as it was.
namespace VideoChange {

/// Changes one video. Throws a Problem where it isn't there any more; `tag` names it then.
void apply(Project& project, const UUID& video, const std::string& tag,
           const std::function<void(Video&)>& change);

/// The video of that id. Throws a Problem where it isn't there.
const Video& video(const Project& project, const UUID& id, const std::string& tag);

/// The first cut that plays a piece, or null.
const Cut* playing(const Video& video, const Said::Piece& piece);

/// A tag as a model gave it, short and on one line, for words about it.
std::string given(const nlohmann::json& object, const char* name);
std::string given(const nlohmann::json& value);

/// " Left out: …; ….", or nothing where nothing was.
std::string leftOut(const std::vector<std::string>& reasons);

/// The text with its reasons joined, for a change of which nothing holds up.
std::string nothingHolds(const char* what, const std::vector<std::string>& reasons);

/// A number, or a text that holds one; nothing for all else.
std::optional<double> number(const nlohmann::json& value);

}

}
