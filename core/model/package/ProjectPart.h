#pragma once

#include "core/model/Project.h"
#include "platform/base/Data.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace murbo {

/// One part of a project as it stood at some moment. In a session it is the value itself, which costs a
/// pointer since parts are shared; from a file it is JSON, read only when somebody goes back to it.
using ProjectPart =
    std::variant<Data, List<SourceGroup>, List<Source>, List<Clip>, List<Bookmark>, List<Video>,
                 List<CaptionStyle>, std::optional<CaptionStyle>, std::optional<std::string>,
                 std::optional<List<Idea>>, std::vector<std::int64_t>, std::optional<Transcript>>;

/// Parts by key: "clips", "videos", "counters" …, and "transcript/" with a source's id for each transcript.
using ProjectParts = std::map<std::string, ProjectPart>;

namespace Parts {

struct PartsChange {
    ProjectParts before;
    ProjectParts after;
};

/// The parts that differ. What both projects share is known to be equal without a look at it.
PartsChange changed(const Project& from, const Project& to);

/// Puts parts into a project. One that can't be read is passed over, the others still apply.
void apply(const ProjectParts& parts, Project& project);

/// The compact JSON of a part. Throws a Problem where it holds a number that is not finite.
Data json(const ProjectPart& part);

/// About how many bytes that JSON takes, counted without writing it.
std::size_t weight(const ProjectPart& part);

}

}
