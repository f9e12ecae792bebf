#pragma once

#include "core/model/Look.h"

#include <optional>
#include <set>

namespace murbo {

/// What the owner listens to while editing. Not stored in the project.
struct Monitoring {
    std::set<Lane> soloed;

    /// Whether a lane sounds: with anything soloed only what is, whatever the mix says; else what the mix
    /// leaves on.
    bool heard(Lane lane, const std::optional<Mix>& mix) const;

    bool operator==(const Monitoring&) const = default;
};

}
