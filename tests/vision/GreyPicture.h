#pragma once

#include "platform/image/Bitmap.h"

#include <cstring>

namespace murbo {

/// An opaque picture of greys by place.
template <typename Grey>
Bitmap greyPicture(int width, int height, const Grey& grey) {
    Bitmap result(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            std::memset(result.row(y) + 4 * x, grey(x, y), 3);
            result.row(y)[4 * x + 3] = 255;
        }
    return result;
}

}
