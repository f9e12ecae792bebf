#pragma once

#include "app/options/Arguments.h"

#include <string_view>

namespace murbo {

/// The commands of the command line that ask models: --describe, --ideas, --cut, --revise, --look, --sound
/// and
/// --fix-words. Each opens a session, agrees with the owner on what it costs, and is one or more steps of the
/// project's history.
namespace PaidCommands {

bool has(std::string_view option);

/// Runs one of them with the words after its option, to its end. Prints what came of it; gives the exit code.
/// Needs a QCoreApplication.
int run(std::string_view option, const Arguments& arguments, const std::vector<std::string>& words);

}

}
