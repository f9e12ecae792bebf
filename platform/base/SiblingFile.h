#pragma once

#include "platform/base/Descriptor.h"

#include <filesystem>
#include <string_view>

namespace murbo {

/// New files that are written beside the place they will take. Their names are few and fixed, so that what a
/// killed process left is used again rather than left for ever; a lock keeps two living writers apart.
namespace SiblingFile {

struct Claimed {
    std::filesystem::path path;
    Descriptor file; ///< locked for as long as it is open; may hold what a killed process wrote
};

/// Opens a hidden file next to `place` for writing. Throws Problem, which names `place`, where none can be.
Claimed claim(const std::filesystem::path& place, std::string_view ending);

/// Throws Problem where something stands at `place` that a file must not replace: a folder, a device, a pipe.
void refuseUnlessFile(const std::filesystem::path& place);

/// Where writing to `place` lands, symbolic links followed, whether anything is there or not.
std::filesystem::path followed(std::filesystem::path place);

}

}
