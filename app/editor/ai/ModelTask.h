#pragma once

#include "core/ai/Conversation.h"
#include "core/model/Project.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// One task for a model: what it is asked about the project, and how its answer changes it. Both run off the
/// main thread, on values of their own.
struct ModelTask {
    /// What an answer came to.
    struct Settled {
        std::string words;         ///< for the owner; may be empty
        bool usable = true;        ///< else nothing changed, and the words say why
        std::size_t count = 0;     ///< of what was done, where it is counted over several tasks
        std::optional<UUID> video; ///< that was made
    };

    std::string title;        ///< of the entries in the log
    std::string label;        ///< of the job
    std::string step;         ///< of the undo history
    std::string beforeReason; ///< said before the reason of a failure
    bool isPart = false;      ///< one of several: its failure does not end the others

    std::function<Conversation(const Project& now)> begin;

    /// Carries out an answer on the project as it is now, which may have gone on since the model was
    /// asked. Throws a Problem where nothing of it can be used. It may be run again, on a newer project.
    std::function<Settled(const nlohmann::json& answer, const Conversation& told, Project& now,
                          const Run& run)>
        finish;
};

}
