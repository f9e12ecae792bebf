#pragma once

#include "platform/image/Bitmap.h"

#include <cstddef>
#include <cstring>

namespace murbo {

/// Whether two bitmaps have the same size and the same pixels.
inline bool same(const Bitmap& one, const Bitmap& other) {
    if (one.width() != other.width() || one.height() != other.height()) return false;
    for (int y = 0; y < one.height(); ++y)
        if (std::memcmp(one.row(y), other.row(y), std::size_t(one.width()) * 4) != 0) return false;
    return true;
}

}
