#pragma once

#include "core/model/Stretch.h"

#include <cstddef>

namespace murbo {

/// The levels that a stretch touches, as indexes: from the first to one after the last.
struct LevelRange {
    std::size_t from = 0;
    std::size_t to = 0;

    static LevelRange of(const Stretch& stretch, int rate, std::size_t count);
};

}
