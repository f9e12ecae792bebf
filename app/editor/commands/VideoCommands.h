#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/model/Video.h"

#include <string>

namespace murbo {

/// What a person does to videos as a whole.
namespace VideoCommands {

/// The aspect of a video that is made without asking: that of the last one.
Video::Aspect lastAspect();

void create(Editor& editor, Video::Aspect aspect, const std::string& title);
void rename(Editor& editor, const UUID& video, const std::string& to);
void setAspect(Editor& editor, Video::Aspect aspect);
void duplicate(Editor& editor, const UUID& video);
void remove(Editor& editor, const UUID& video);

CommandList table();

}

}
