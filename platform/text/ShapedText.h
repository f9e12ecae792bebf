#pragma once

#include "platform/image/Geometry.h"
#include "platform/text/Fonts.h"
#include "platform/text/PlacedGlyph.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace murbo {

class GlyphCache;

/// A text shaped in a font: what it measures, where it may be broken into lines, and its glyphs.
///
/// Lines are broken and placed by ourselves: a line takes the room of the font asked for, whatever letters of
/// other fonts stand in it, blanks at its ends count for nothing, and all widths grow evenly with the size.
/// One thread at a time may use one text; any number of texts may be used at once.
class ShapedText {
public:
    /// A stretch of the text that stands on one line, without the blanks round it.
    struct Line {
        std::size_t from = 0; ///< bytes
        std::size_t to = 0;
        double width = 0;
    };

    ShapedText(std::string text, const Font& font);
    ~ShapedText();
    ShapedText(const ShapedText&) = delete;

    /// Width of the longest line when only line breaks in the text break it.
    double width() const;

    /// The lines within `width`; a word longer than that is broken between letters. Ends once there are more
    /// than `max` lines.
    std::vector<Line> lines(double width, std::size_t max) const;

    /// The glyphs of a line whose left end and baseline are at `start`.
    std::vector<PlacedGlyph> glyphs(const Line& line, Point start) const;

    /// How far letters reach over and under the baseline: the same for all lines of a text, with room for the
    /// marks of scripts that stack them.
    double ascent() const;
    double descent() const;

    /// The letters that no font has; they are left out of the picture.
    const std::vector<char32_t>& missing() const;
    /// No font is installed at all.
    bool hopeless() const;

    /// Only for this room.
    GlyphCache& cache() const;

private:
    struct Shaping;
    std::unique_ptr<Shaping> shaping;
};

}
