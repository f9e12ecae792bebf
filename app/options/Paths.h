#pragma once

#include <filesystem>
#include <string>

namespace murbo {

/// Paths as people type them.
namespace Paths {

/// A word as an absolute path, without the detours by which it was typed.
std::filesystem::path absolute(const std::string& word);

}

}
