#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Brief.h"
#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A small conversation: the model gets a line about each clip, asks for the lines of those that it needs,
/// and then answers. It works on the project as it stood when it began.
class Reading {
public:
    static constexpr int maxRounds = 3; ///< reads that are granted

    /// How the conversation begins.
    struct Opening {
        std::string system;      ///< the task
        std::string words;       ///< what is asked for
        std::vector<UUID> scope; ///< clips that may be read; rejected ones only if they are given
        std::vector<UUID> given; ///< clips whose lines come with the opening
        std::int64_t maxTokens = 10'000;
        std::int64_t thinking = 4'000;
    };
    Reading(const Opening& opening, const Project& now);

    /// Takes a model's reply. Whether it asked to read more: then `ask` goes on, and the request is to be
    /// sent again. Otherwise `answer` holds what it replied.
    bool goesOn(std::string_view reply);

    /// The clips that it asked for last.
    const Brief::Clips& asked() const { return wanted; }

    /// The cuts that a value names, from clips that were read.
    std::vector<Cut> cuts(const nlohmann::json& value) const;

    /// The clips whose lines the model has.
    const Brief::Clips& given() const { return read; }
    /// The conversation so far.
    const Ask& ask() const { return conversation; }
    /// Reads granted so far.
    int rounds() const { return granted; }
    const Project& project() const { return *kept; }
    const Said& said() const { return *pieces; }

private:
    Brief::Clips choose(const std::vector<UUID>& ids) const;
    std::string opening(const std::string& words) const;
    Brief::Clips wantedIn(std::string_view reply) const;

    std::shared_ptr<const Project> kept;
    std::shared_ptr<const Said> pieces;
    Brief::Clips scope, read, wanted;
    Ask conversation;
    int granted = 0;
};

}
