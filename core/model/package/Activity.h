#pragma once

#include "platform/base/Dates.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// One line of a project's activity log: one piece of work that an engine or a model did, what was asked,
/// what came back and what it cost.
struct Activity {
    std::string kind;                  ///< what sort of work: "transcribe", "ask"
    std::string title;                 ///< shown to the owner
    std::optional<std::string> engine; ///< the model's id, or the engine's name
    Date started;
    std::optional<Date> ended;
    std::string state = "running"; ///< then "done", "stopped" or "failed"
    std::optional<double> cost;    ///< dollars as reported
    std::optional<std::string> error;
    std::optional<std::string> request;
    std::optional<std::string> reply;

    bool operator==(const Activity&) const = default;

    /// Adds an entry to the log in a project's package. An entry is logged when its work has ended. A log
    /// that can't be written never stops the work: this does not fail.
    static void log(const Activity& entry, const std::filesystem::path& package);

    /// All entries that can be read, oldest first.
    static std::vector<Activity> read(const std::filesystem::path& package);
};

}
