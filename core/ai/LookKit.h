#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Said.h"
#include "core/ai/ShotsByTag.h"
#include "core/model/Project.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A video's framing, punch-ins, big captions and overlays, chosen by a model in one request.
namespace LookKit {

/// A playbook on offer.
struct Offer {
    std::string id;
    std::string name;
    std::string about;
    std::int64_t version = 1;
    double seconds = 3;       ///< how long it stays
    std::optional<bool> mute; ///< whether the video's own sound is off under it
};
using Offers = std::vector<Offer>;

/// More overlays are not laid on in one go; three are asked for.
inline constexpr std::size_t maxOverlays = 50;

/// The task, in the words that the model gets.
std::string instructions(Video::Aspect aspect, const Offers& layouts, const Offers& overlays);

Ask ask(const Video& video, const Project& project, const Said& said, const Offers& layouts,
        const Offers& overlays);

/// Carries out what a reply asks for. Gives what was done and what was left out, in words; throws a Problem,
/// the project as it was, where nothing of it can be used.
std::string apply(const nlohmann::json& object, const UUID& video, Project& project, const Offers& layouts,
                  const Offers& overlays, const Run& run);

}

}
