#pragma once

#include <cstdint>
#include <vector>

namespace murbo {

/// One glyph's pixels, at a place within a pixel.
struct GlyphPicture {
    int left = 0; ///< of the pixels, from the pen
    int top = 0;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> alpha;   ///< coverage, row by row
    std::vector<std::uint8_t> colours; ///< premultiplied BGRA of a colour glyph; empty for a plain one
};

}
