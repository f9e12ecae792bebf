#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace murbo {

/// Names in the order in which people expect them: numbers by value ("clip 2" before "clip 10"), letters of
/// every script by the root rules of Unicode's collation (UTS 10).
namespace Names {

/// A strict order of all texts: names that read alike ("clip 2", "clip 02") stand in byte order.
bool before(std::string_view one, std::string_view other);

/// The paths in that order, whole paths compared; equal ones stay as they stood.
void sort(std::vector<std::filesystem::path>& paths);

}

}
