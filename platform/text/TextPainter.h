#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Colour.h"
#include "platform/image/Rect.h"
#include "platform/text/ShapedText.h"

#include <vector>

namespace murbo {

/// Draws the glyphs of a shaped text into a bitmap, over what stands there, each layer in one colour. Emoji
/// keep their own colours, at the opacity of the colour asked for.
namespace TextPainter {

/// The glyphs themselves.
void fill(Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs, Colour colour);

/// A line of `width` pixels along the edges of the glyphs, half of it outside, round where they turn.
void outline(Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs, double width,
             Colour colour);

/// What the glyphs cast: moved by `offset`, blurred as by a Gaussian of deviation `sigma`.
void shadow(Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs, Point offset,
            double sigma, Colour colour);

/// Rounded boxes from top to bottom, drawn as one shape: those that touch flow together.
void boxes(Bitmap& target, const std::vector<Rect>& boxes, double radius, Colour colour);

}

}
