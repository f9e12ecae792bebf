#pragma once

#include "platform/base/Problem.h"

#include <filesystem>
#include <string>

namespace murbo {

/// Why a project could not be opened or made. Whoever opened it learns this much and no more; the cause is
/// kept nested for the developer.
class ProjectError : public Problem {
public:
    enum class Kind { damaged, newer, exists };

    ProjectError(Kind kind, const std::filesystem::path& package);

    /// “Name.mbproj”: the last part of the path, also where a slash ends it.
    static std::string quotedName(const std::filesystem::path& package);

    const Kind kind;
    const std::filesystem::path package;
};

}
