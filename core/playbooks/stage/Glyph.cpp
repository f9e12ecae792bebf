#include "core/playbooks/stage/Glyph.h"

#include "platform/text/TextPainter.h"

#include <climits>
#include <cmath>
#include <cstring>

namespace murbo {

namespace {

constexpr double largest = 4000;  // points
constexpr double weight = 0.56;   // as captions have it
constexpr double air = 4;         // pixels on each side
constexpr double sharpUpTo = 400; // pixels that a letter is drawn in
constexpr double widest = 4096;

/// Where something stands in a picture, in whole pixels.
struct Ink {
    int left = INT_MAX;
    int top = INT_MAX;
    int right = 0; ///< exclusive
    int bottom = 0;

    explicit Ink(const Bitmap& bitmap) {
        for (int y = 0; y < bitmap.height(); ++y)
            for (int x = 0; x < bitmap.width(); ++x) {
                if (bitmap.row(y)[x * 4 + 3] == 0) continue;
                left = std::min(left, x);
                right = std::max(right, x + 1);
                top = std::min(top, y);
                bottom = y + 1;
            }
    }
    bool empty() const { return right == 0; }
};

/// What the ink covers, and `around` it.
Bitmap cutOut(const Bitmap& from, const Ink& ink, int around) {
    Bitmap to(ink.right - ink.left + 2 * around, ink.bottom - ink.top + 2 * around);
    const auto bytes = std::size_t(ink.right - ink.left) * 4;
    for (int y = ink.top; y < ink.bottom; ++y)
        std::memcpy(to.row(y - ink.top + around) + around * 4, from.row(y) + ink.left * 4, bytes);
    return to;
}

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
    // Whole steps, so that the air is whole pixels too. A long word has to do with fewer.
    for (double finer = std::max(1.0, std::round(sharpUpTo / size)); finer >= 1;
         finer = std::floor(finer / 2)) {
        const auto room = drawn(text, size * finer);
        if (!room) continue;
        const Ink ink(*room);
        if (ink.empty()) return {};
        return Glyph{cutOut(*room, ink, int(air * finer)), finer};
    }
    return {};
}

}
