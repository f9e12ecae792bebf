#pragma once

#include <filesystem>

namespace murbo {

/// The user's home folder: HOME, or where that says nothing, the system's user list. Empty where nobody
/// knows.
std::filesystem::path homeFolder();

}
