#include "core/intake/SourceFinder.h"

#include "core/model/Project.h"

#include <filesystem>

namespace murbo {

bool SourceFinder::find(const Source& source) {
    std::error_code error;
    return std::filesystem::exists(source.path, error);
}

std::set<UUID> SourceFinder::find(const Project& project) {
    std::set<UUID> missing;
    for (const auto& source : project.sources)
        if (!find(source)) missing.insert(source.id);
    return missing;
}

}
