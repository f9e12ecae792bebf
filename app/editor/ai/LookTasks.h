#pragma once

#include "app/editor/ai/ModelTask.h"

#include <filesystem>
#include <optional>

namespace murbo {

/// What models put on a video's cuts.
namespace LookTasks {

/// Framing, punch-ins, big captions and overlays. The playbooks that it uses are copied into the package.
ModelTask look(const UUID& video, const std::optional<std::filesystem::path>& package);

/// Sound effects out of the owner's library. Those that it uses are copied into the package.
ModelTask sound(const UUID& video, const std::optional<std::filesystem::path>& package);

/// Why no sounds can be chosen; nothing where the library holds some.
std::optional<std::string> noSounds();

}

}
