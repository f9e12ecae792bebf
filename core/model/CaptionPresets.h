#pragma once

#include "core/model/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// Which caption style holds where: presets build on one another, videos on their project.
namespace CaptionPresets {

/// The presets to choose from: the built-in ones, each replaced by the project's of the same id, then the
/// project's others.
std::vector<CaptionStyle> of(const Project& project);

/// A preset with all that it builds on beneath it, "pop" at the bottom. No id, or one found nowhere, is
/// "pop". `depth` counts the presets already on top of it, so that a ring of bases comes to an end.
CaptionStyle resolved(const Project& project, const std::optional<std::string>& id, int depth = 0);

/// The style in force for a video.
CaptionStyle style(const Project& project, const Video& video);

}

}
