#pragma once

#include "core/model/Stretch.h"
#include "core/model/Video.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace murbo {

/// The clock of a finished video: seconds from 0 at its first frame.
namespace VideoTime {

struct Place {
    std::size_t cut = 0; ///< index
    double at = 0;       ///< seconds on the cut's source
};

/// The video time at which each cut begins.
std::vector<double> starts(const List<Cut>& cuts);

/// The cut that plays at a video time, and the moment of its source. A time before the start is the first
/// moment, one past the end the last moment of the last cut. Nothing with no cuts.
std::optional<Place> locate(double time, const List<Cut>& cuts);

/// The moments of its source that a cut shows: from its start, less the slack for one place, to just before
/// its end.
Stretch shown(const Cut& cut);

/// Whether a cut shows a moment of its source.
bool shows(const Cut& cut, double at);

}

}
