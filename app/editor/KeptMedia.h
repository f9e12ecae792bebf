#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace murbo::KeptMedia {

/// Copies a file into a folder of a project's media, unless the very same is there, and gives its path in the
/// project; without a package the path as it is. Nothing where it can't be copied. Any thread.
std::optional<std::string> keep(const std::filesystem::path& file, const std::string& folder,
                                const std::optional<std::filesystem::path>& package);

/// The words for the owner about a file that could not be copied.
std::string failure(const std::filesystem::path& file);

}
