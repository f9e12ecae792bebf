#pragma once

#include "core/model/Look.h"
#include "core/model/Run.h"
#include "core/model/Times.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace murbo {

/// The playbook that draws a generated cut.
struct Generator {
    std::string playbook; ///< id
    std::int64_t version = 1;
    std::optional<Values> values;

    bool operator==(const Generator&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("playbook", &Generator::playbook), field("version", &Generator::version),
                          field("values", &Generator::values)};
    }
};
static_assert(Record<Generator>);

/// A run of a source, or a generated stretch.
struct Cut {
    UUID id = UUID::make();
    UUID source;      ///< for a generated cut an id that names no source
    double start = 0; ///< seconds on the source; a generated cut starts at 0
    double end = 0;
    std::optional<std::string> role; ///< what the cut does in the story
    std::optional<Generator> generator;
    std::optional<bool> muted; ///< the cut's own sound is off

    /// A cut of at least 0.1 seconds that shows a generated picture and no footage.
    static Cut generated(std::string playbook, std::int64_t version, std::optional<Values> values,
                         double length);

    /// The seconds that it takes in a video, a whole number of ticks: so the cuts of a long video begin on
    /// their frames, however their times were rounded. 0 where the end lies before the start.
    double length() const {
        const double length = Times::onTick(end) - Times::onTick(start);
        return length > 0 ? length : 0;
    }

    bool operator==(const Cut&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Cut::id),       field("source", &Cut::source),
                          field("start", &Cut::start), field("end", &Cut::end),
                          field("role", &Cut::role),   field("generator", &Cut::generator),
                          field("muted", &Cut::muted)};
    }
};
static_assert(Record<Cut>);

/// An ordered list of cuts and, once dressed, a look. The editing verbs stand in VideoEdits.h.
struct Video {
    enum class Aspect { vertical, horizontal, square, portrait };

    UUID id = UUID::make();
    std::int64_t number = 0;         ///< shown in the tag; copies share it
    std::optional<std::string> part; ///< a letter that tells copies apart
    std::string title;
    Aspect aspect = Aspect::vertical;
    List<Cut> cuts; ///< in playing order
    std::optional<Look> look;
    std::optional<Runs> runs;

    /// Seconds; 0 with no cuts.
    double length() const;

    /// How people and models name it: "V2", "V2b".
    std::string tag() const;

    bool operator==(const Video&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Video::id),         field("number", &Video::number),
                          field("part", &Video::part),     field("title", &Video::title),
                          field("aspect", &Video::aspect), field("cuts", &Video::cuts),
                          field("look", &Video::look),     field("runs", &Video::runs)};
    }
};
static_assert(Record<Video>);
constexpr auto rawTexts(Video::Aspect) {
    return std::array<std::string_view, 4>{"9:16", "16:9", "1:1", "4:5"};
}

}
