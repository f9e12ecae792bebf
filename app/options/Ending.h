#pragma once

#include <exception>
#include <functional>
#include <string>

namespace murbo {

/// How every program of the set ends.
namespace Ending {

/// Runs the work. 0, or 1 after "error: " and the reason on standard output; with MURBO_DEBUG set, the
/// error's kind and causes follow it.
int of(const std::function<void()>& work);

/// Prints why something failed, and answers the exit code of that.
int failure(const std::string& words);

}

}
