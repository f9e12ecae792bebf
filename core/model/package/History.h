#pragma once

#include "core/model/Project.h"
#include "core/model/package/ProjectPart.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What can be undone and redone in one project. No operation describes its own inverse: a step keeps the
/// parts of the project that differ, as they stood before and after, and undoing puts those before back.
class History {
public:
    struct Step {
        std::string name; ///< as the user reads it in "Undid Trim"
        ProjectParts before;
        ProjectParts after;
        std::size_t bytes = 0; ///< about what its JSON takes; 0 until counted
    };

    /// Steps that are kept, at most.
    static constexpr std::size_t maxSteps = 100;
    /// About how many bytes of JSON the kept steps may come to; older ones go first, the newest stays. A
    /// hundred changes of the lines of a three-hour recording fit.
    static constexpr std::size_t maxBytes = std::size_t{128} << 20;

    /// The name of the step that would be undone, redone.
    std::optional<std::string> undoName() const;
    std::optional<std::string> redoName() const;

    /// Notes a change. One that alters nothing is no step, and what was undone can still be redone.
    void record(const std::string& name, const Project& from, const Project& to);

    /// Puts the project back by a step, or forth again. The step's name; nothing where there is none.
    std::optional<std::string> undo(Project& project);
    std::optional<std::string> redo(Project& project);

    const std::vector<Step>& past() const { return done; }
    const std::vector<Step>& future() const { return undone; }

private:
    friend struct HistoryFile;
    void dropOldest();

    std::vector<Step> done;   ///< oldest first
    std::vector<Step> undone; ///< the next one to redo last
};

namespace ProjectPackage {

/// The history kept in a package. A missing or broken one is an empty one: it never keeps a project from
/// opening.
History readHistory(const std::filesystem::path& package);

/// Writes the history whole. Throws a Problem where it can't.
void writeHistory(const History& history, const std::filesystem::path& package);

}

}
