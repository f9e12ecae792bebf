#pragma once

#include "core/model/Project.h"
#include "core/model/Stretch.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace murbo {

/// What is done to a project as a whole.
namespace ProjectOperations {

/// Hands out the next number of one of the project's counters. Throws a Problem once there is none left.
std::int64_t nextNumber(std::int64_t& counter);

/// Appends an empty video.
Video newVideo(Project& project, std::string title, Video::Aspect aspect);

/// Puts a copy of a video right after it, with the same number and the next free letter. Nothing where there
/// is no such video.
std::optional<Video> duplicate(Project& project, const UUID& video);

/// The stretches of at least `least` seconds in `range` of a source in which nobody speaks.
std::vector<Stretch> quiet(const Project& project, const UUID& source, Stretch range, double least);

/// Which lanes are turned off, by video. Turning a lane off is listening, not editing: it is kept over an
/// undo.
struct Mutes {
    std::map<UUID, std::vector<Lane>> rows; ///< the lanes turned off
    std::set<UUID> seen;                    ///< the videos looked at
    bool operator==(const Mutes&) const = default;
};

Mutes mutes(const Project& project);

/// Turns the same lanes off again after the history has put a project back. Videos that came back keep
/// theirs.
void keep(Project& project, const Mutes& mutes);

}

}
