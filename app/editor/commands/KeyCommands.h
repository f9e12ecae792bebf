#pragma once

#include "app/editor/Keys.h"
#include "app/editor/commands/EditorCommand.h"

namespace murbo {

/// What keys do in a session.
namespace KeyCommands {

/// Carries out an editing command, on what has the keys.
void perform(Editor& editor, Command command);

CommandList table();

}

}
