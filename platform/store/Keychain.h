#pragma once

#include <optional>
#include <string>

namespace murbo {

/// Secrets of the user's, in the desktop's keyring. Where there is no keyring nothing is kept and nothing
/// found; that is no failure. Blocks for as long as the keyring asks its owner for leave, at most half a
/// minute.
namespace Keychain {

/// The OpenRouter key: the environment's OPENROUTER_API_KEY where that is not empty, else the one kept.
std::optional<std::string> openRouter();

/// Keeps a key in the place of any other; an empty one keeps none.
void keepOpenRouter(const std::string& key);

}

}
