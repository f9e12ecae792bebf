#pragma once

#include "app/editor/commands/EditorCommand.h"

namespace murbo {

/// What AI can do for the owner, and texts to hand to an AI app.
namespace PromptCommands {

CommandList table();

}

}
