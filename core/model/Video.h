#pragma once

#include "core/model/Cut.h"
#include "core/model/Look.h"
#include "core/model/Run.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// An ordered list of cuts and, once dressed, a look. The editing verbs stand in VideoEdits.h.
struct Video {
    enum class Aspect { vertical, horizontal, square, portrait };

    UUID id = UUID::make();
    std::int64_t number = 0;         ///< shown in the tag; copies share it
    std::optional<std::string> part; ///< a letter that sets copies apart
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
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Video::id), field("number", &Video::number), field("part", &Video::part),
                     field("title", &Video::title), field("aspect", &Video::aspect),
                     field("cuts", &Video::cuts), field("look", &Video::look), field("runs", &Video::runs));
    }
};
constexpr auto rawTexts(Video::Aspect) {
    return std::array<std::string_view, 4>{"9:16", "16:9", "1:1", "4:5"};
}

}
