#include "platform/image/Bitmap.h"

#include "platform/image/PixelMemory.h"

#include <algorithm>

namespace murbo {

Bitmap::Bitmap(int width, int height) {
    *this = toBeFilled(width, height);
    std::memset(memory.get(), 0, rowBytes * height);
}

int Bitmap::air() const {
    const auto clear = [&](int x, int y) { return row(y)[std::ptrdiff_t(x) * 4 + 3] == 0; };
    const auto ringIsClear = [&](int at) {
        for (int x = at; x < pixelsWide - at; ++x)
            if (!clear(x, at) || !clear(x, pixelsHigh - 1 - at)) return false;
        for (int y = at; y < pixelsHigh - at; ++y)
            if (!clear(at, y) || !clear(pixelsWide - 1 - at, y)) return false;
        return true;
    };
    int rings = 0;
    while (2 * rings < std::min(pixelsWide, pixelsHigh) && ringIsClear(rings)) ++rings;
    return rings;
}

Bitmap Bitmap::toBeFilled(int width, int height) {
    PixelMemory::requireSize(width, height);
    Bitmap bitmap;
    bitmap.pixelsWide = width;
    bitmap.pixelsHigh = height;
    bitmap.rowBytes = PixelMemory::stride(std::ptrdiff_t(width) * 4);
    bitmap.memory = PixelMemory::take(bitmap.rowBytes * height);
    return bitmap;
}

}
