#pragma once

#include "core/model/Run.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

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
        static constexpr auto fields(auto visit) {
            return visit(field("title", &Summary::title), field("summary", &Summary::summary),
                         field("energy", &Summary::energy), field("kind", &Summary::kind),
                         field("unsure", &Summary::unsure), field("keyLine", &Summary::keyLine));
        }
    };

    UUID id = UUID::make();
    std::int64_t number = 0;         ///< shown in the tag
    std::optional<std::string> part; ///< sets apart pieces of a clip that share a number
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
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Clip::id), field("number", &Clip::number), field("part", &Clip::part),
                     field("source", &Clip::source), field("start", &Clip::start), field("end", &Clip::end),
                     field("marks", &Clip::marks), field("rating", &Clip::rating),
                     field("summary", &Clip::summary), field("name", &Clip::name),
                     field("runs", &Clip::runs));
    }
};

}
