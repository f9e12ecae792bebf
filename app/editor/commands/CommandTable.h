#pragma once

#include "app/editor/commands/EditorCommand.h"

#include <string>

namespace murbo {

/// All commands of a session. Scripts read it; so do menus, keys and the page of commands.
namespace CommandTable {

const CommandList& all();

/// The command of that name, or null.
const EditorCommand* find(const std::string& name);

/// The page that lists them, in Markdown.
std::string page();

}

}
