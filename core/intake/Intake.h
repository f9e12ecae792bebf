#pragma once

#include "core/intake/MeasuredFile.h"

#include <cstddef>
#include <filesystem>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// From what the user hands over (files, folders) to movie files with a length.
namespace Intake {

/// The movie files among the given files and folders, in the order a person would put them (clip 2 before
/// clip 10). Folders are searched in depth; hidden entries, the inside of packages, and folders behind
/// symbolic links are passed over, and so is what can't be read. A file counts by its extension alone; one
/// that is given twice appears twice. The search ends early, with what it has found, once `stop` is asked
/// for, at `max` files, or after four million entries.
std::vector<std::filesystem::path> videos(const std::vector<std::filesystem::path>& given,
                                          const std::stop_token& stop = {}, std::size_t max = 100000);

/// The endings that movies have, in lower case and without their dot.
std::vector<std::string> movieEndings();

/// Whether a file name has the extension of a movie, in either case.
bool isMovie(const std::filesystem::path& name);

/// Each readable file with its length, in the given order; the others are left out, and so are those whose
/// path no project can hold because it is not UTF-8.
std::vector<MeasuredFile> lengths(const std::vector<std::filesystem::path>& files);

/// The name for an intake of files: their folder's, or where they come from several, "Added " and the present
/// date and time in the system's locale.
std::string groupName(const std::vector<std::filesystem::path>& files);

}

}
