#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/model/CaptionStyle.h"

#include <functional>
#include <optional>
#include <string>

namespace murbo {

/// How captions look: in one video, in the whole project, and in the owner's library.
namespace StyleCommands {

using StyleChange = std::function<void(CaptionStyle&)>;

/// Changes the style of the open video, or of the project.
void setCaptionStyle(Editor& editor, bool project, const StyleChange& change);
/// The same by a slider: it becomes a step once it has been still.
void settleCaptionStyle(Editor& editor, bool project, const StyleChange& change);
/// Takes a preset as it is; none takes the style away.
void pickCaptionPreset(Editor& editor, const std::optional<CaptionStyle>& style, bool project);
/// Saves a style under a name in library and project, and has the open video use it.
void savePreset(Editor& editor, CaptionStyle style, const std::string& name);

/// Whether a preset is one that somebody saved, and may be named otherwise or taken away.
bool isSaved(const Editor& editor, const std::string& id);
/// Names a saved preset otherwise, in library and project. Throws a Problem where the library can't be
/// written.
void renamePreset(Editor& editor, const std::string& id, const std::string& name);
/// Takes a saved preset out of the library, and out of the project where nothing there builds on it.
void removePreset(Editor& editor, const std::string& id);

CommandList table();

}

}
