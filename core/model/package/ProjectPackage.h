#pragma once

#include "core/model/Project.h"
#include "core/model/package/ProjectError.h"

#include <filesystem>

namespace murbo {

/// A project on disk: a folder with `project.json` and one file per transcript beside its media and caches.
/// Each file is replaced as a whole, so that a crash leaves every one of them either old or new.
namespace ProjectPackage {

inline constexpr const char* fileExtension = "mbproj";

/// Throws ProjectError: `newer` before all else, `damaged` for anything that can't be read.
Project read(const std::filesystem::path& package);

/// Writes what changed since `previous`, the project as it was last read from or written to this very
/// package; all of it where that is null: then the package is created with all folders above it, else it has
/// to be there still. Deletes nothing: the file of a transcript that is gone stays. Throws a Problem; files
/// written before it stay written.
void write(const Project& project, const std::filesystem::path& package, const Project* previous);

/// A package with an empty project. Throws ProjectError `exists` where anything has the name.
void create(const std::filesystem::path& package);

}

}
