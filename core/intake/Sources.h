#pragma once

#include "core/intake/Clips.h"
#include "core/intake/Intake.h"
#include "core/model/Source.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

struct Project;

/// Adding footage to a project.
namespace Sources {

/// Seconds up to which a camera file becomes a clip as a whole.
inline constexpr double wholeUpTo = 600;

/// Adds files as one group. A camera file of at most `wholeUpTo` seconds also becomes a clip, a stream never
/// does. Answers the ids of the new sources.
std::vector<UUID> add(Project& project, const std::vector<MeasuredFile>& files, const std::string& group,
                      Source::Kind kind, double wholeUpTo = Sources::wholeUpTo);

/// What is known of a stream recording beside the file itself.
struct StreamNotes {
    std::optional<std::string> markersName; ///< last path component of the markers file
    std::optional<std::string> markers;     ///< its whole text
    std::optional<std::string> note;        ///< what the recording is, in the user's words
};

/// Adds a stream recording as a group of its own, and a clip around each of its markers (Clips::addAround).
/// The markers' text is kept in the source; of more than 100,000 markers the first count. Answers the id of
/// the new source.
UUID addStream(Project& project, const MeasuredFile& recording, const StreamNotes& notes,
               ClipReach reach = {});

}

}
