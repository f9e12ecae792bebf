#include "core/model/package/ProjectError.h"

#include <string>

namespace murbo {
namespace {

/// The last part of the path, also where a slash ends it.
std::string name(const std::filesystem::path& package) {
    return (package.has_filename() ? package : package.parent_path()).filename().string();
}

std::string words(ProjectError::Kind kind, const std::filesystem::path& package) {
    const auto quoted = "“" + name(package) + "”";
    switch (kind) {
        case ProjectError::Kind::damaged:
            return quoted + " could not be opened. It is damaged or is not an Murbo project.";
        case ProjectError::Kind::newer:
            return quoted + " was made by a newer version of Murbo. Update Murbo to open it.";
        case ProjectError::Kind::exists:
            return quoted + " is already there.";
    }
    return quoted;
}

}

ProjectError::ProjectError(Kind given, const std::filesystem::path& at)
    : Problem(words(given, at)), kind(given), package(at) {}

}
