#pragma once

#include "core/ai/OpenRouter.h"

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>

namespace murbo {

/// A request that the owner pays for: held to the limit on what a day may cost, and logged in the project
/// with what it came to. Any thread.
struct PaidRequest {
    std::string title;                            ///< of its entry in the log
    Ask ask;                                      ///< what is sent
    std::string text;                             ///< what the entry says of it
    std::string modelId;                          ///< who is asked
    std::optional<std::filesystem::path> package; ///< whose log; none is kept without one

    /// Sends it once and waits for the answer. Throws a Problem in words for the owner, Cancelled once `stop`
    /// is asked for; that is logged as well.
    OpenRouter::Answer send(const std::string& key, const std::stop_token& stop) const;
};

}
