#pragma once

#include "core/ai/Said.h"
#include "core/ai/ShotsByTag.h"
#include "core/ai/SoundsByTag.h"
#include "core/mcp/MCPResult.h"
#include "core/model/Project.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace murbo {

/// What the tools need from outside the project.
struct MCPContext {
    ShotsByTag::Layouts layouts;
    SoundsByTag::Library sounds;
    std::map<UUID, std::vector<std::uint8_t>> loudness; ///< of the sources measured so far
    std::map<UUID, Video> seen;                         ///< as each stood when last read or changed
    std::shared_ptr<const Said> said;                   ///< of the project; made where it is missing
};

}
