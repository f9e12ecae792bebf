#include "core/render/stage/Ink.h"

#include <algorithm>
#include <cstring>

namespace murbo {

Ink::Ink(const Bitmap& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) {
            if (bitmap.row(y)[x * 4 + 3] == 0) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
}

Bitmap Ink::cutOut(const Bitmap& from, int around) const {
    Bitmap to(right - left + 2 * around, bottom - top + 2 * around);
    const auto bytes = std::size_t(right - left) * 4;
    for (int y = top; y < bottom; ++y)
        std::memcpy(to.row(y - top + around) + around * 4, from.row(y) + left * 4, bytes);
    return to;
}

}
