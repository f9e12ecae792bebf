#pragma once

#include "core/model/Framing.h"
#include "core/model/Run.h"
#include "core/model/Transcript.h"
#include "core/model/Video.h"
#include "platform/base/Data.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace murbo {

/// The sources that came in by one intake.
struct SourceGroup {
    UUID id = UUID::make();
    std::string name;

    bool operator==(const SourceGroup&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &SourceGroup::id), field("name", &SourceGroup::name)};
    }
};
static_assert(Record<SourceGroup>);

/// One footage file.
struct Source {
    enum class Kind { stream, file };

    /// The markers of a stream recording, kept whole so that their file is never needed again.
    struct Stream {
        std::string markersName; ///< last path component of the markers file
        std::string markers;     ///< its whole text

        bool operator==(const Stream&) const = default;
        static constexpr auto fields() {
            return std::tuple{field("markersName", &Stream::markersName), field("markers", &Stream::markers)};
        }
    };

    UUID id = UUID::make();
    UUID group;
    std::string path;             ///< absolute
    std::optional<Data> bookmark; ///< another system's file reference, kept as found
    Kind kind = Kind::file;
    double length = 0;               ///< seconds
    std::optional<std::string> note; ///< what the recording is, in the user's words
    std::optional<Stream> stream;
    std::optional<Framing> framing;

    /// The last path component.
    std::string name() const;

    bool operator==(const Source&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Source::id),          field("group", &Source::group),
                          field("path", &Source::path),      field("bookmark", &Source::bookmark),
                          field("kind", &Source::kind),      field("length", &Source::length),
                          field("note", &Source::note),      field("stream", &Source::stream),
                          field("framing", &Source::framing)};
    }
};
static_assert(Record<Source::Stream> && Record<Source>);
constexpr auto rawTexts(Source::Kind) {
    return std::array<std::string_view, 2>{"stream", "file"};
}

/// A marked stretch of one source. A line belongs to it by the line's middle: no link is stored.
struct Clip {
    /// The description that a model gave.
    struct Summary {
        std::string title;
        std::string summary;
        std::optional<std::string> energy;
        std::optional<std::string> kind;
        std::optional<std::string> unsure; ///< what the model could not make out
        std::optional<UUID> keyLine;       ///< the line that sums the clip up

        bool operator==(const Summary&) const = default;
        static constexpr auto fields() {
            return std::tuple{field("title", &Summary::title),   field("summary", &Summary::summary),
                              field("energy", &Summary::energy), field("kind", &Summary::kind),
                              field("unsure", &Summary::unsure), field("keyLine", &Summary::keyLine)};
        }
    };

    UUID id = UUID::make();
    std::int64_t number = 0;         ///< shown in the tag
    std::optional<std::string> part; ///< tells apart the pieces of a clip that share a number
    UUID source;
    double start = 0;                   ///< seconds on the source, inclusive
    double end = 0;                     ///< exclusive
    std::vector<double> marks;          ///< the marker times that made the clip, seconds on the source
    std::optional<std::int64_t> rating; ///< 1 is favourite, -1 is rejected
    std::optional<Summary> summary;
    std::optional<std::string> name; ///< the user's own
    std::optional<Runs> runs;

    double length() const { return end - start; }

    /// Whether a moment of its source lies in the clip.
    bool holds(double moment) const { return start <= moment && moment < end; }

    /// How people and models name it: "C07", "C14a".
    std::string tag() const;

    /// The name by which it is shown; `otherwise` where it has neither a name nor a summary's title.
    std::string title(const std::string& otherwise) const;

    bool operator==(const Clip&) const = default;
    static constexpr auto fields() {
        return std::tuple{
            field("id", &Clip::id),         field("number", &Clip::number), field("part", &Clip::part),
            field("source", &Clip::source), field("start", &Clip::start),   field("end", &Clip::end),
            field("marks", &Clip::marks),   field("rating", &Clip::rating), field("summary", &Clip::summary),
            field("name", &Clip::name),     field("runs", &Clip::runs)};
    }
};
static_assert(Record<Clip::Summary> && Record<Clip>);

/// A marked moment or stretch of a source.
struct Bookmark {
    UUID id = UUID::make();
    std::int64_t number = 0;
    UUID source;
    double at = 0; ///< seconds on the source
    std::optional<double> end;
    std::optional<std::string> note;

    std::string tag() const; ///< "B1"

    bool operator==(const Bookmark&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Bookmark::id),         field("number", &Bookmark::number),
                          field("source", &Bookmark::source), field("at", &Bookmark::at),
                          field("end", &Bookmark::end),       field("note", &Bookmark::note)};
    }
};
static_assert(Record<Bookmark>);

/// A proposed video.
struct Idea {
    UUID id = UUID::make();
    std::string title;
    std::string hook;
    std::string why;
    std::optional<std::string> format;
    std::vector<Cut> cuts;
    std::optional<std::string> instruction; ///< what led to it
    std::optional<Run> run;                 ///< who made it

    double length() const; ///< seconds

    bool operator==(const Idea&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Idea::id),
                          field("title", &Idea::title),
                          field("hook", &Idea::hook),
                          field("why", &Idea::why),
                          field("format", &Idea::format),
                          field("cuts", &Idea::cuts),
                          field("instruction", &Idea::instruction),
                          field("run", &Idea::run)};
    }
};
static_assert(Record<Idea>);

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
    static constexpr auto fields() {
        return std::tuple{field("format", &Project::format),
                          field("groups", &Project::groups),
                          field("sources", &Project::sources),
                          field("clips", &Project::clips),
                          field("bookmarks", &Project::bookmarks),
                          field("videos", &Project::videos),
                          field("ideas", &Project::ideas),
                          field("captionStyle", &Project::captionStyle),
                          field("styles", &Project::styles),
                          field("lastClip", &Project::lastClip),
                          field("lastBookmark", &Project::lastBookmark),
                          field("lastVideo", &Project::lastVideo),
                          field("language", &Project::language)};
    }
};
static_assert(Record<Project>);

}
