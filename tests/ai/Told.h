#pragma once

#include "core/ai/CutToInstruction.h"
#include "tests/ai/Footage.h"

#include <nlohmann/json.hpp>

namespace murbo {

/// Five clips of three lines each, the last one rejected.
struct Told : Footage {
    Told() {
        for (int n = 0; n < 5; ++n) addClip(100.0 * n, {"first", "second", "third"});
        project.clips.edit()[4].rating = -1;
        project.sources.edit()[0].note = "A stream";
    }

    std::vector<UUID> clips() const {
        std::vector<UUID> ids;
        for (const auto& clip : project.clips) ids.push_back(clip.id);
        return ids;
    }
    Reading reading(const std::vector<UUID>& given = {}) const {
        return CutToInstruction::reading("the fall", clips(), given, Video::Aspect::square, project);
    }
};

inline std::vector<std::string> tags(const Brief::Clips& clips) {
    std::vector<std::string> found;
    for (const auto* clip : clips) found.push_back(clip->tag());
    return found;
}

}
