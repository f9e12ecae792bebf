#pragma once

#include "core/model/Clip.h"
#include "core/model/Transcript.h"

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

namespace murbo {

/// What is said on one source, by its start, and how it is called. Working it out takes as long as a
/// recording is, so it is kept from one change of a project to the next.
class OrderedTranscript {
public:
    /// `clips` are those of the whole project.
    OrderedTranscript(const UUID& source, const Transcript& said, const List<Clip>& clips);

    /// Whether it is still true of a project with these lines and clips.
    bool isOf(const Transcript& said, const List<Clip>& clips) const;

    /// Lines and notes by their start. They live as long as this.
    const std::vector<const Line*>& lines() const { return linesByStart; }
    const std::vector<const Note*>& notes() const { return notesByStart; }
    /// The tags of those that lie in clips.
    const std::unordered_map<UUID, std::string>& tags() const { return names; }
    /// Seconds that the longest of them lasts.
    double reach() const { return longest; }

private:
    Transcript transcript; ///< shared with the project: what the pointers point into stays
    List<Clip> allClips;
    double longest = 0;
    std::vector<const Line*> linesByStart;
    std::vector<const Note*> notesByStart;
    std::unordered_map<UUID, std::string> names;
};

/// By source.
using OrderedTranscripts = std::map<UUID, OrderedTranscript>;

}
