#pragma once

#include "core/model/Line.h"

#include <vector>

namespace murbo {

struct Project;

namespace Transcripts {

/// Puts new lines in the place of those whose middle lies from `start` up to, not including, `end` (seconds
/// on the source). Afterwards the lines stand in the order of their starts; the notes stay.
void replaceLines(Project& project, const UUID& source, double start, double end, std::vector<Line> lines);

}

}
