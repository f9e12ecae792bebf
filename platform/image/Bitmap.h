#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace murbo {

/// 8-bit premultiplied sRGB pixels in the byte order blue, green, red, alpha. Copies share the pixels;
/// whoever fills a bitmap does so before handing it on, from then on it is read only and may be read from any
/// thread.
class Bitmap {
public:
    Bitmap() = default;
    /// All clear. Throws Problem where the size is not above 0 or too large to hold (over 32768 a side).
    Bitmap(int width, int height);
    /// The same with pixels of no known colour, for callers that set them all.
    static Bitmap toBeFilled(int width, int height);

    int width() const { return pixelsWide; }
    int height() const { return pixelsHigh; }
    bool empty() const { return !memory; }
    /// How many pixels deep it is clear along all its sides.
    int air() const;
    /// Bytes from row to row; a multiple of 64.
    std::ptrdiff_t stride() const { return rowBytes; }

    const std::uint8_t* row(int y) const { return memory.get() + y * rowBytes; }
    std::uint8_t* row(int y) { return memory.get() + y * rowBytes; }

private:
    int pixelsWide = 0;
    int pixelsHigh = 0;
    std::ptrdiff_t rowBytes = 0;
    std::shared_ptr<std::uint8_t[]> memory;
};

}
