#include "core/render/stage/VisibleBounds.h"

#include <algorithm>
#include <cstring>

namespace murbo {

VisibleBounds::VisibleBounds(const Bitmap& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) {
            if (bitmap.row(y)[x * 4 + 3] == 0) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = y + 1;
        }
}

Bitmap VisibleBounds::cutOut(const Bitmap& from, int margin) const {
    Bitmap to(right - left + 2 * margin, bottom - top + 2 * margin);
    const auto bytes = std::size_t(right - left) * 4;
    for (int y = top; y < bottom; ++y)
        std::memcpy(to.row(y - top + margin) + margin * 4, from.row(y) + left * 4, bytes);
    return to;
}

}
