#pragma once

#include "platform/image/Bitmap.h"

#include <climits>

namespace murbo {

/// The smallest rectangle of whole pixels that holds all of a picture that is not clear.
struct VisibleBounds {
    int left = INT_MAX;
    int top = INT_MAX;
    int right = 0; ///< exclusive
    int bottom = 0;

    explicit VisibleBounds(const Bitmap& bitmap);
    bool empty() const { return right == 0; }

    /// That part of the picture, with a margin of clear pixels round it.
    Bitmap cutOut(const Bitmap& from, int margin) const;
};

}
