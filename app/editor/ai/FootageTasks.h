#pragma once

#include "app/editor/ai/ModelTask.h"
#include "core/ai/Price.h"
#include "core/model/Stretch.h"

#include <string>
#include <vector>

namespace murbo {

/// What models do to footage.
namespace FootageTasks {

using ClipIds = std::vector<UUID>;

/// Those of the clips in which something is said or noted, in the project's order, in batches that one
/// request can hold.
std::vector<ClipIds> batches(const Project& project, const ClipIds& clips);

/// The tags of clips: "C01, C02".
std::string tags(const Project& project, const ClipIds& clips);

/// A title and a summary for each clip of a batch.
ModelTask describe(const Project& project, const ClipIds& batch);
double describingCost(const Project& project, const ClipIds& clips, const Price& price);

/// What the recognizer misheard in the clips of a batch, corrected.
ModelTask fixWords(const Project& project, const ClipIds& batch);
double fixingCost(const Project& project, const ClipIds& clips, const Price& price);

/// A note on a stretch of a source, from frames of it.
ModelTask note(const UUID& source, Stretch stretch);
double notingCost(const Project& project, const UUID& source, Stretch stretch, const Price& price);

}

}
