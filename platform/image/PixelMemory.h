#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace murbo::PixelMemory {

/// So many bytes of no known content, on whole cache lines. Large ones come from what others have given back
/// where they can: fresh memory is cleared by the system page by page, which for pictures that last one
/// frame costs as much as drawing them. Any thread may ask and give back.
std::shared_ptr<std::uint8_t[]> take(std::size_t bytes);

}
