#pragma once

#include "platform/base/UUID.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What came of a command that asked models, for who waits for it. It is filled in as the work goes on, and
/// whole when the session is idle again.
struct Outcome {
    std::vector<std::string> said;      ///< what the owner was told, in order
    std::optional<std::string> failure; ///< why nothing came of it, without the task's name
    bool failed = false;                ///< some of it, or all
    bool stopped = false;               ///< the owner stopped it, or did not agree
    std::optional<UUID> video;          ///< that was made
};
using OutcomeRef = std::shared_ptr<Outcome>;

}
