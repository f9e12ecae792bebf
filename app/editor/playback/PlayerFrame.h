#pragma once

#include "platform/image/Bitmap.h"

#include <cstdint>

namespace murbo {

/// A picture that a player shows.
struct PlayerFrame {
    Bitmap picture;
    double time = 0;         ///< seconds on the item's clock
    std::int64_t number = 0; ///< which frame of the item is on then, from 0
    bool exact = true;       ///< false for a picture near by, where the right one is still to come
};

}
