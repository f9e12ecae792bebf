#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/model/Video.h"

#include <optional>

namespace murbo {

/// What becomes of the ideas that wait.
namespace IdeaCommands {

/// Makes an idea a video, and takes it from those that wait. Its cuts of footage that is gone are left out;
/// throws a Problem where none is left. Gives the video's id.
UUID make(Project& project, const UUID& idea, Video::Aspect aspect);

/// The same as a step, with the video opened. Nothing where it could not be made; a toast has said why.
std::optional<UUID> makeVideo(Editor& editor, const UUID& idea);

void throwAway(Editor& editor, const UUID& idea);

CommandList table();

}

}
