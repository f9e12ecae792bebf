#pragma once

#include "app/editor/commands/EditorCommand.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// Sound effects, songs, and how loud the lanes are.
namespace SoundCommands {

/// Lays a sound file of a folder of the library at a video time, at the playhead without one.
void addSound(Editor& editor, const std::filesystem::path& file, const std::string& folder, bool music,
              std::optional<double> at);
/// Turns sounds off; on, where all of them are off.
void toggleMuteSounds(Editor& editor, const std::vector<UUID>& sounds);

CommandList table();

}

}
