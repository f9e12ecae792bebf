#pragma once

#include "app/options/Arguments.h"

namespace murbo {

/// The program as a tool for scripts: commands that work on projects and need no session.
namespace Headless {

/// Runs the command that the arguments match and answers the exit code: 0, or 1 after "error: " and the
/// reason. All output goes to standard output.
int run(const Arguments& arguments);

}

}
