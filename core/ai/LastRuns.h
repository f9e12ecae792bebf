#pragma once

#include "core/ai/Toolkit.h"
#include "core/model/Run.h"

#include <optional>

namespace murbo {

/// What AI last did to a clip or a video, by kit.
namespace LastRuns {

/// Puts a run under its kit, in the place of the one before; the other kits' stay.
void note(std::optional<Runs>& runs, Kit::ID kit, const Run& run);

std::optional<Run> of(const std::optional<Runs>& runs, Kit::ID kit);

/// A run of this moment. `with` is the model's id, where one is known.
Run now(Run::By by, std::optional<std::string> with = std::nullopt);

}

}
