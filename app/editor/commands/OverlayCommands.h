#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/playbooks/Book.h"

#include <filesystem>
#include <optional>

namespace murbo {

/// Playbooks and media laid over the picture.
namespace OverlayCommands {

/// Lays a playbook at a video time, at the playhead without one. One that lays out shots becomes a shot.
void addOverlay(Editor& editor, const Book& book, std::optional<double> at);
/// Lays a picture or a video of the user's own at a video time, at the playhead without one.
void addMedia(Editor& editor, const std::filesystem::path& file, std::optional<double> at = std::nullopt);
/// Takes the library's present version of an overlay's playbook.
void updateOverlay(Editor& editor, const UUID& overlay);

CommandList table();

}

}
