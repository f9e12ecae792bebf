#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace murbo::PixelMemory {

/// Throws Problem where a picture's size is not above 0 or too large to hold (over 32768 a side).
void requireSize(int width, int height);
/// Bytes from row to row for rows of that many bytes; a multiple of 64.
std::ptrdiff_t stride(std::ptrdiff_t bytes);

/// That many bytes of no known content, on whole cache lines. Large ones come from what others have given
/// back where they can: fresh memory is cleared by the system page by page, which for pictures that last one
/// frame costs as much as drawing them. Any thread may ask and give back.
std::shared_ptr<std::uint8_t[]> take(std::size_t bytes);

}
