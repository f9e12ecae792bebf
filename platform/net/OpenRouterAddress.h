#pragma once

#include <string>

namespace murbo {

/// Where requests to OpenRouter go.
namespace OpenRouterAddress {

/// "https://openrouter.ai", or what the environment variable MURBO_OPENROUTER holds, without a "/" at its
/// end. Throws a Problem where that is neither an HTTPS address nor one of this very machine.
std::string base();

}

}
