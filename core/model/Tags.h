#pragma once

#include "core/model/Project.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace murbo {

/// The short names by which people and models speak of footage: C14 a clip, C14.03 its third line, C14.n1
/// its first note. Printed from the records and never stored: they hold only for the project as it stands.
namespace Tags {

/// What a line or note is called, and the clip that it is called after.
struct Named {
    std::string tag;
    UUID clip;
};

/// The lines and notes of a transcript that lie in its source's clips, by their ids. Where clips overlap the
/// later one names them.
std::unordered_map<UUID, Named> named(const Transcript& transcript, const std::vector<const Clip*>& clips);

/// The same for one source of a project.
std::unordered_map<UUID, Named> named(const UUID& source, const Project& project);

/// The tags of the lines and notes of one source that lie in a clip, by their ids.
std::unordered_map<UUID, std::string> on(const UUID& source, const Project& project);

}

}
