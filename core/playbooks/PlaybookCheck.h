#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace murbo::PlaybookCheck {

/// Holds a playbook's JSON against the words of the format, before any record exists: every fault that can be
/// found is found in one pass, each with its place and what would be right. Throws a Problem with all of
/// them, one a line. With a folder, the files that layers name are looked for as well.
void check(std::string_view json, const std::optional<std::filesystem::path>& folder = std::nullopt);

}
