#pragma once

#include "app/editor/commands/EditorCommand.h"

namespace murbo {

/// The transport of both players. Names of the source player's commands begin with "source.".
namespace PlayerCommands {

CommandList table();

}

}
