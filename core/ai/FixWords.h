#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Brief.h"
#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <map>
#include <string>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// What the recognizer misheard, corrected by a model, kept as spoken.
namespace FixWords {

using Corrections = std::map<UUID, std::string>; ///< by line

/// The task, in the words that the model gets.
std::string instructions();

Ask ask(const Brief::Clips& clips, const Project& project, const Said& said);

struct Corrected {
    Corrections corrections;
    std::vector<std::string> leftOut; ///< tags of lines whose correction changes too much
};

/// What a reply corrects in the lines of these clips. A correction that changes more than a third of a line's
/// letters, or its length by half, is a rewording and left out, as is one that changes nothing.
Corrected answer(const nlohmann::json& object, const Brief::Clips& clips, const Said& said);

/// Corrects lines that still say what they said when they were read, and stamps their clips with the run.
/// Gives how many lines changed.
std::size_t apply(const Corrections& corrections, const Said& read, Project& project, const Run& run);

}

}
