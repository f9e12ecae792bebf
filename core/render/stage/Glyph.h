#pragma once

#include "platform/image/Bitmap.h"

#include <optional>
#include <string>

namespace murbo {

/// What particles and emoji stickers are made of: an emoji in its own colours, or letters in white, with a
/// little room round them.
struct Glyph {
    static constexpr std::size_t longest = 200; ///< bytes
    static constexpr double letterShare = 0.56; ///< of the points asked for, that letters are large

    Bitmap bitmap;
    double finer = 1; ///< pixels to the one asked for: enough to show it several times as large

    /// Nothing where no font has it, where it is too long, and where the points are no size.
    static std::optional<Glyph> draw(const std::string& text, double points);
};

}
