#pragma once

#include "platform/image/Bitmap.h"

#include <climits>

namespace murbo {

/// What of a drawn picture is not clear, in whole pixels.
struct Ink {
    int left = INT_MAX;
    int top = INT_MAX;
    int right = 0; ///< exclusive
    int bottom = 0;

    explicit Ink(const Bitmap& bitmap);
    bool empty() const { return right == 0; }

    /// What the ink covers of that picture, and so many clear pixels round it.
    Bitmap cutOut(const Bitmap& from, int around) const;
};

}
