#include "platform/image/Planes.h"

#include "platform/base/Problem.h"
#include "platform/image/PixelMemory.h"

namespace murbo {

Planes::Planes(int width, int height) {
    PixelMemory::requireSize(width, height);
    if (width % 2 != 0 || height % 2 != 0)
        throw Problem("A movie’s sides must be even, not " + std::to_string(width) + " × " +
                      std::to_string(height) + ".");
    pixelsWide = width;
    pixelsHigh = height;
    lumaStride = PixelMemory::stride(width);
    chromaStride = PixelMemory::stride(width / 2);
    offsets[1] = lumaStride * height;
    offsets[2] = offsets[1] + chromaStride * (height / 2);
    memory = PixelMemory::take(offsets[2] + chromaStride * (height / 2));
}

}
