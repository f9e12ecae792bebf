#pragma once

#include <string>

namespace murbo {

class Editor;

/// Gives commands of the table by their lines, as scripts do: ["blade", 2.5].
namespace CommandRun {

/// Carries a line out. What is wrong with it is said to the owner. Whether it was carried out.
bool run(Editor& editor, const std::string& line);

/// Whether there is anything for the line's command to act on now.
bool possible(const Editor& editor, const std::string& line);

/// What the line's command is called.
std::string title(const std::string& line);

}

}
