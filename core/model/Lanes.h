#pragma once

#include "core/model/Stretch.h"

#include <cstddef>
#include <vector>

namespace murbo {

/// Rows for blocks that may overlap, for drawing them on a timeline.
namespace Lanes {

/// The row of each stretch: the first that is free when it begins, taken in order of their beginnings.
std::vector<std::size_t> assign(const std::vector<Stretch>& stretches);

}

}
