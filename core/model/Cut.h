#pragma once

#include "core/model/Generator.h"
#include "core/model/Times.h"
#include "core/model/Values.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>

namespace murbo {

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
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Cut::id), field("source", &Cut::source), field("start", &Cut::start),
                     field("end", &Cut::end), field("role", &Cut::role), field("generator", &Cut::generator),
                     field("muted", &Cut::muted));
    }
};

}
