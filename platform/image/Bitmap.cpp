#include "platform/image/Bitmap.h"

#include "platform/base/Problem.h"
#include "platform/image/PixelMemory.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr int longestSide = 32768;
/// Rows start on whole cache lines, so that no vector of pixels straddles two.
constexpr std::ptrdiff_t rowAlignment = 64;

std::ptrdiff_t rounded(std::ptrdiff_t bytes) {
    return (bytes + rowAlignment - 1) / rowAlignment * rowAlignment;
}

void require(int width, int height) {
    if (width > 0 && height > 0 && width <= longestSide && height <= longestSide) return;
    throw Problem("A picture of " + std::to_string(width) + " × " + std::to_string(height) +
                  " pixels can’t be held.");
}

}

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
    require(width, height);
    Bitmap bitmap;
    bitmap.pixelsWide = width;
    bitmap.pixelsHigh = height;
    bitmap.rowBytes = rounded(std::ptrdiff_t(width) * 4);
    bitmap.memory = PixelMemory::take(bitmap.rowBytes * height);
    return bitmap;
}

Planes::Planes(int width, int height) {
    require(width, height);
    if (width % 2 != 0 || height % 2 != 0)
        throw Problem("A movie’s sides must be even, not " + std::to_string(width) + " × " +
                      std::to_string(height) + ".");
    pixelsWide = width;
    pixelsHigh = height;
    lumaStride = rounded(width);
    chromaStride = rounded(width / 2);
    offsets[1] = lumaStride * height;
    offsets[2] = offsets[1] + chromaStride * (height / 2);
    memory = PixelMemory::take(offsets[2] + chromaStride * (height / 2));
}

}
