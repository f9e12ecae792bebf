#pragma once

#include "platform/base/UUID.h"

#include <optional>
#include <string>

namespace murbo {

/// What came of a tool.
struct MCPResult {
    std::string text;                ///< the answer
    std::optional<std::string> step; ///< the name of the undo step, of a change
    std::optional<UUID> looked;      ///< a video that the caller has now seen as it is
};

}
