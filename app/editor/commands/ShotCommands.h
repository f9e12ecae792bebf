#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/model/Look.h"
#include "core/playbooks/Book.h"

#include <functional>
#include <optional>

namespace murbo {

/// Framing over time.
namespace ShotCommands {

/// Switches the framing at the playhead: to a layout, or to one that a playbook draws.
void cut(Editor& editor, Shot::Layout to, const std::optional<Book>& book = std::nullopt);
/// Zooms in at the playhead, or out again.
void punch(Editor& editor);

CommandList table();

}

}
