#pragma once

#include "platform/image/Point.h"

#include <cstddef>
#include <cstdint>

struct _PangoFont;

namespace murbo {

/// A glyph in its place. Valid as long as the text it came from.
struct PlacedGlyph {
    _PangoFont* font = nullptr;
    std::uint32_t glyph = 0;
    Point pen;
    std::size_t at = 0; ///< the byte of the text it draws
};

}
