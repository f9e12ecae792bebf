#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Said.h"
#include "core/model/Project.h"
#include "core/model/Stretch.h"

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// Words for a stretch where nobody speaks, written by a model from a few of its frames.
namespace NotesFromFrames {

inline constexpr int maxFrames = 6;
inline constexpr double maxSide = 768; ///< pixels of a frame that is sent

/// When frames are taken of a stretch, in seconds on its source: one every two seconds, evenly, and no more
/// than `maxFrames`.
std::vector<double> times(Stretch stretch);

/// Those frames as JPEG files. Ones that can't be read are left out. Throws Cancelled.
std::vector<std::string> frames(const Source& source, Stretch stretch, const std::stop_token& stop);

Ask ask(const UUID& source, Stretch stretch, std::vector<std::string> frames, const Project& project,
        const Said& said);

/// What the question adds: that pictures leave the computer, and how many.
std::string warning(std::size_t frames);

/// The words of a reply; nothing where it holds none.
std::optional<std::string> words(const nlohmann::json& object);

/// Writes a note on the stretch, and stamps the clips that lie there with the run. Throws a Problem where the
/// source isn't there any more.
void apply(const std::string& words, const UUID& source, Stretch stretch, Project& project, const Run& run);

}

}
