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
    /// The same with pixels of no known colour, for who will set them all.
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

/// 4:2:0 planes to be encoded: 8-bit limited-range BT.709, chroma sited left. Copies share the samples.
class Planes {
public:
    Planes() = default;
    /// Throws Problem where a side is not above 0, or is odd.
    Planes(int width, int height);

    int width() const { return pixelsWide; }
    int height() const { return pixelsHigh; }
    /// 0 is Y', 1 is Cb, 2 is Cr.
    std::uint8_t* plane(int index) { return memory.get() + offsets[index]; }
    const std::uint8_t* plane(int index) const { return memory.get() + offsets[index]; }
    std::ptrdiff_t stride(int index) const { return index == 0 ? lumaStride : chromaStride; }
    /// Keeps the samples alive where only pointers travel on.
    std::shared_ptr<const void> keeper() const { return memory; }

private:
    int pixelsWide = 0;
    int pixelsHigh = 0;
    std::ptrdiff_t lumaStride = 0;
    std::ptrdiff_t chromaStride = 0;
    std::ptrdiff_t offsets[3] = {};
    std::shared_ptr<std::uint8_t[]> memory;
};

}
