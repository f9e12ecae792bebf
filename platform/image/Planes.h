#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace murbo {

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
