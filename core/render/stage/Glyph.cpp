#include "core/render/stage/Glyph.h"

#include "core/render/stage/VisibleBounds.h"
#include "platform/text/TextPainter.h"

#include <cmath>

namespace murbo {

namespace {

constexpr double largest = 4000;  // points
constexpr double weight = 0.56;   // as captions have it
constexpr double margin = 4;      // pixels on each side
constexpr double sharpUpTo = 400; // pixels that a letter is drawn in
constexpr double widest = 4096;

/// The text in letters of that size, on as much room as any of them may reach into.
std::optional<Bitmap> drawn(const std::string& text, double size) {
    const ShapedText shaped(text, Fonts::font("", weight, size));
    const auto lines = shaped.hopeless() ? std::vector<ShapedText::Line>() : shaped.lines(widest * 4, 1);
    if (lines.empty() || !(lines.front().width <= widest)) return {};
    const double aside = size / 2;
    const double height = shaped.ascent() + shaped.descent() + 2 * aside;
    Bitmap room(int(std::ceil(lines.front().width + 2 * aside)), int(std::ceil(height)));
    const Point start{aside, aside + shaped.ascent()};
    TextPainter::fill(room, shaped, shaped.glyphs(lines.front(), start), Colour::white);
    return room;
}

}

std::optional<Glyph> Glyph::draw(const std::string& text, double points) {
    if (text.empty() || text.size() > longest || !(points >= 1 && points <= largest)) return {};
    const double size = points * letterShare;
    // Whole steps, so that the margin is whole pixels too. A long word has to do with fewer.
    for (double finer = std::max(1.0, std::round(sharpUpTo / size)); finer >= 1;
         finer = std::floor(finer / 2)) {
        const auto room = drawn(text, size * finer);
        if (!room) continue;
        const VisibleBounds bounds(*room);
        if (bounds.empty()) return {};
        return Glyph{bounds.cutOut(*room, int(margin * finer)), finer};
    }
    return {};
}

}
