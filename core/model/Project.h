#pragma once

#include "core/model/Bookmark.h"
#include "core/model/CaptionStyle.h"
#include "core/model/Clip.h"
#include "core/model/Idea.h"
#include "core/model/Source.h"
#include "core/model/SourceGroup.h"
#include "core/model/Transcript.h"
#include "core/model/Video.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace murbo {

/// The whole document: one value, cheap to copy and to compare. Records point at one another by id alone;
/// what points at nothing is passed over by its readers.
struct Project {
    static constexpr std::int64_t currentFormat = 1;

    std::int64_t format = currentFormat;
    List<SourceGroup> groups;
    List<Source> sources; ///< in intake order
    List<Clip> clips;
    List<Bookmark> bookmarks;
    List<Video> videos;
    std::optional<List<Idea>> ideas; ///< none and empty are different values
    std::optional<CaptionStyle> captionStyle;
    List<CaptionStyle> styles; ///< caption presets saved in this project
    std::int64_t lastClip = 0; ///< highest number ever handed out
    std::int64_t lastBookmark = 0;
    std::int64_t lastVideo = 0;
    std::optional<std::string> language;    ///< spoken in the footage
    std::map<UUID, Transcript> transcripts; ///< by source; kept in files of their own

    /// The first source with that id, or null.
    const Source* source(const UUID& id) const;

    /// What is said on a source; nothing where it has no transcript yet.
    const Transcript& transcript(const UUID& source) const;

    bool operator==(const Project&) const = default;
    using Unlisted = std::tuple<std::map<UUID, Transcript>>;
    static constexpr auto fields(auto visit) {
        return visit(field("format", &Project::format), field("groups", &Project::groups),
                     field("sources", &Project::sources), field("clips", &Project::clips),
                     field("bookmarks", &Project::bookmarks), field("videos", &Project::videos),
                     field("ideas", &Project::ideas), field("captionStyle", &Project::captionStyle),
                     field("styles", &Project::styles), field("lastClip", &Project::lastClip),
                     field("lastBookmark", &Project::lastBookmark), field("lastVideo", &Project::lastVideo),
                     field("language", &Project::language));
    }
};

}
