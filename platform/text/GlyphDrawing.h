#pragma once

#include "platform/text/GlyphPicture.h"

#include <pango/pango.h>

namespace murbo {

/// Turns one glyph into pixels. Only for this room.
namespace GlyphDrawing {

/// A glyph whose pen stands at (`x`, `y`) within a pixel; filled where `stroke` is 0, else a line of that
/// width along its outline. A colour glyph has no outline to follow: its stroke is what lies within half the
/// width of its shape.
GlyphPicture draw(PangoFont* font, PangoGlyph glyph, double x, double y, double stroke);

}

}
