#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// Whole files in and out. Failures are Problems that name the file and the cause in the owner's words.
namespace Files {

/// The bytes of a regular file. Throws where it is no regular file or holds more than `max` bytes.
std::string readWhole(const std::filesystem::path& path, std::size_t max);

/// Puts a file in place as a whole: at every moment, and after a crash, the path holds either the old bytes
/// or the new ones. An existing file keeps its permissions. On failure nothing is left behind. Two processes
/// may write the same path; the last one wins. What is no regular file, such as a device, is never replaced.
void writeWhole(const std::filesystem::path& path, std::string_view bytes);

/// Copies a regular file, its folder made where it is missing, over what stands there: as a whole and
/// flushed, like `writeWhole`.
void copy(const std::filesystem::path& from, const std::filesystem::path& to);

/// Creates a folder with all above it; one that exists is fine.
void createFolder(const std::filesystem::path& path);

/// The path of `name` under a folder, links followed, whether it is there or not. Nothing where that leads
/// out of the folder.
std::optional<std::filesystem::path> inside(const std::filesystem::path& folder,
                                            const std::filesystem::path& name);

}

}
