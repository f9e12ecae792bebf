#pragma once

#include "core/model/Project.h"

#include <functional>
#include <optional>
#include <vector>

namespace murbo {

/// Pulling a dragged time onto the edges around it. Times in seconds.
namespace Snapping {

/// The nearest of the times that lies within reach, the earliest in the list among equals; else `value`.
double nearest(double value, const std::vector<double>& among, double within);

/// By how much to move a block with these edges that is dragged by `by`, when either edge may catch.
double shift(double first, double second, double by, const std::function<double(double)>& snap);

/// Where the lines of a transcript that still count as said start and end; nothing without one.
std::vector<double> lineEdges(const Transcript* transcript);

/// The video times that a drag is drawn to: both ends of the video, the cuts, shots, overlays, sounds and
/// bookmarks. `except` is what is dragged, which must not catch on itself.
std::vector<double> targets(const Video& video, const List<Bookmark>& bookmarks,
                            const std::optional<UUID>& except);

}

}
