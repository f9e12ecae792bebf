#pragma once

#include "app/editor/commands/EditorCommand.h"

namespace murbo {

/// Undo, drags, and what a session shows: reading and setting its fields.
namespace SessionCommands {

CommandList table();

}

}
