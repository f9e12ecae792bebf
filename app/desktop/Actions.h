#pragma once

#include "app/editor/Keys.h"

#include <QKeyCombination>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace murbo {

/// One thing that a person can choose: in a menu, by keys, in the palette. What a session does is a line of
/// its command table; what a window does is one of its own verbs.
struct Action {
    std::string id;
    std::string menu;  ///< its name; empty for those that only the palette has
    std::string title; ///< empty: that of its command
    std::string keys;  ///< as Qt writes them, "Ctrl+B"; empty where a bare key or none gives it
    std::string line;  ///< a command of the table with its arguments; empty for a verb of the window
    std::optional<Command> command; ///< an editing command, whose key the owner chooses
    bool textToo = false;           ///< keys that mean something else while text is edited
};

/// THE table of actions: menus, keys and the palette all come from it.
namespace Actions {

std::span<const Action> all();
const Action* find(const std::string& id);  ///< or null
const Action* byKeys(QKeyCombination keys); ///< or null
/// The menus, in their order.
std::vector<std::string> menus();

std::string title(const Action& action);
/// The keys that give it now, as people read them; empty where there are none.
std::string keys(const Action& action);

}

}
