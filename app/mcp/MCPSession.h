#pragma once

#include "core/model/Project.h"
#include "core/model/package/History.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What AI apps need of an open project's session.
class MCPSession {
public:
    virtual ~MCPSession() = default;

    virtual const Project& project() const = 0;
    virtual const History& history() const = 0;

    /// Ends a drag in progress, so that nothing slips into the middle of it.
    virtual void closeDrag() = 0;

    /// Takes over a changed project as one undo step of that name. Nothing where nothing changed. Throws a
    /// Problem with the session as it was.
    virtual void commit(const std::string& name, Project changed) = 0;

    /// Undoes the last step.
    virtual void undo() = 0;

    /// The path in the project of a copy of a sound. Throws a Problem.
    virtual std::string keepMedia(const std::filesystem::path& file) = 0;

    /// The loudness of those of the sources that are measured; the others begin to be.
    virtual std::map<UUID, std::vector<std::uint8_t>> loudness(const std::vector<UUID>& sources) = 0;

    /// Brings the owner's eyes to a question of an app.
    virtual void showQuestion() {}
};

}
