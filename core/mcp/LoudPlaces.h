#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"
#include "core/model/Stretch.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// Where footage is loud and where nobody speaks, each place named by its line.
namespace LoudPlaces {

struct HeardStretch {
    UUID source;
    Stretch on;    ///< seconds on the source
    double at = 0; ///< the same start on the clock that is shown
};

struct Stretches {
    std::vector<HeardStretch> all;
    bool onVideo = false; ///< the clock is the video's; else each source's own
};

/// What a call of read_loudness asks for: a video's cuts, or clips. Throws a Problem.
Stretches stretches(const nlohmann::json& arguments, const Project& project);

/// The sources whose loudness such a call looks at. Throws a Problem.
std::vector<UUID> sources(const nlohmann::json& arguments, const Project& project);

/// The answer. Throws a Problem where a source hasn't been measured yet.
std::string text(const Stretches& stretches, const Project& project, const Said& said,
                 const std::map<UUID, std::vector<std::uint8_t>>& loudness);

}

}
