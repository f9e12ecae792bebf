#include "core/model/package/ProjectError.h"

#include <string>

namespace murbo {
namespace {

std::string words(ProjectError::Kind kind, const std::filesystem::path& package) {
    const auto quoted = ProjectError::quotedName(package);
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

std::string ProjectError::quotedName(const std::filesystem::path& package) {
    return "“" + (package.has_filename() ? package : package.parent_path()).filename().string() + "”";
}

ProjectError::ProjectError(Kind given, const std::filesystem::path& at)
    : Problem(words(given, at)), kind(given), package(at) {}

}
