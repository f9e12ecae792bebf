#pragma once

#include "app/desktop/transcript/OrderedTranscript.h"
#include "app/desktop/transcript/TranscriptRow.h"
#include "core/model/Project.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What a transcript shows, worked out from a project. Lines that no longer count as said are left out.
namespace TranscriptRows {

/// Whose words are shown: those of a clip, of a whole source, or of a video; the first that is set.
struct SpokenSubject {
    std::optional<UUID> clip;
    std::optional<UUID> source;
    std::optional<UUID> video;
    bool operator==(const SpokenSubject&) const = default;
};

/// All that rows depend on; as long as it stays the same, they do.
struct Basis {
    SpokenSubject subject;
    std::optional<UUID> openVideo; ///< whose cuts show as a bar beside the lines
    double quietLeast = 2;         ///< seconds from which a silence is shown
    std::map<UUID, Transcript> transcripts;
    List<Clip> clips;
    List<Source> sources;
    List<Cut> cuts; ///< of the open video

    static Basis of(const Project& project, const SpokenSubject& subject,
                    const std::optional<UUID>& openVideo, double quietLeast);
    bool operator==(const Basis&) const = default;
};

/// In the order in which they are heard, at most `max`. What was worked out of the sources is taken from
/// `spoken` and kept there.
std::vector<TranscriptRow> of(const Basis& basis, OrderedTranscripts& spoken, std::size_t max = 100000);

/// A text as one block of a document shows it: what would end the block or is no letter at all turns into a
/// blank or a stand-in, each code unit into one.
QString shown(const std::string& text, bool& whole);

}

}
