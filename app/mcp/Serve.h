#pragma once

#include <filesystem>

namespace murbo {

namespace Serve {

/// Keeps a project open to AI apps until the program is asked to end (Ctrl-C). On a terminal it prints a line
/// a call, and asks the owner's questions on standard error. Needs a QCoreApplication. Throws a Problem where
/// the project or the port can't be opened.
void run(const std::filesystem::path& package);

}

}
