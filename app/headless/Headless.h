#pragma once

#include "app/headless/Arguments.h"

#include <optional>

namespace murbo {

/// The program as a tool for scripts: commands that work on projects and need no window.
namespace Headless {

/// Runs the first command, in their fixed order, that the arguments match; a command with too few arguments
/// matches nothing. Answers the exit code: 0, or 1 after "error: " and the reason. Nothing where no command
/// matched. All output goes to standard output; with MURBO_DEBUG set, an error's kind and causes follow it.
std::optional<int> run(const Arguments& arguments);

/// All commands with their arguments, one to a line.
std::string usage();

}

}
