#pragma once

#include "platform/image/Geometry.h"
#include "platform/text/ShapedText.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// Where the lines of a caption stand. For the caption pictures.
namespace CaptionLayout {

struct Block {
    double size = 0;     ///< of the font
    double maxWidth = 0; ///< whole pixels
    bool pill = false;
    double stroke = 0; ///< width of the outline; 0 for none
};

struct Layout {
    int width = 0; ///< of the picture
    int height = 0;
    std::vector<PlacedGlyph> glyphs;
    std::vector<Rect> boxes; ///< the box of each line that says something
};

/// Whether numbers and text are such that a picture can come of them at all.
bool isDrawable(const std::string& text, double size, double width);

/// The width of the block: the widest there is for a text that fits in one line, else the smallest at which
/// its lines come out even.
double blockWidth(const ShapedText& text, double size, double maxWidth);

/// The text in centred lines. Nothing where the picture would be too large.
std::optional<Layout> lay(const ShapedText& text, const Block& block);

}

}
