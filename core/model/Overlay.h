#pragma once

#include "core/model/Move.h"
#include "core/model/Values.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>

namespace murbo {

/// A playbook laid over the picture.
struct Overlay {
    UUID id = UUID::make();
    std::string playbook; ///< id
    std::int64_t version = 1;
    UUID source;
    double at = 0;               ///< seconds on the source
    double length = 0;           ///< seconds
    std::optional<bool> stretch; ///< the playbook's timing is stretched to `length`
    std::optional<Values> values;
    std::optional<bool> mute; ///< the video's own sound is off under it
    std::optional<Move> move;

    bool operator==(const Overlay&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Overlay::id), field("playbook", &Overlay::playbook),
                     field("version", &Overlay::version), field("source", &Overlay::source),
                     field("at", &Overlay::at), field("length", &Overlay::length),
                     field("stretch", &Overlay::stretch), field("values", &Overlay::values),
                     field("mute", &Overlay::mute), field("move", &Overlay::move));
    }
};

}
