#include "platform/text/TextPainter.h"

#include "platform/text/CoverageMask.h"
#include "platform/text/GlyphCache.h"

#include <numbers>

#include <cairo.h>

namespace murbo::TextPainter {

namespace {

struct StandingGlyph {
    std::shared_ptr<const GlyphPicture> picture;
    int x = 0;
    int y = 0;
};

/// A pen to the quarter of a pixel: near enough for the eye, and few enough pictures to keep.
StandingGlyph place(const ShapedText& text, const PlacedGlyph& glyph, double stroke) {
    const auto x = std::int64_t(std::floor(glyph.pen.x * 4 + 0.5));
    const auto y = std::int64_t(std::floor(glyph.pen.y * 4 + 0.5));
    StandingGlyph placed{text.cache().picture(glyph.font, glyph.glyph, int(x & 3), int(y & 3), stroke),
                         int(x >> 2), int(y >> 2)};
    placed.x += placed.picture->left;
    placed.y += placed.picture->top;
    return placed;
}

enum class Take { everything, plain };

CoverageMask gathered(const Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs,
                      double stroke, Take take) {
    CoverageMask mask(target.width(), target.height());
    for (const auto& glyph : glyphs) {
        const auto [picture, x, y] = place(text, glyph, stroke);
        if (take == Take::plain && !picture->colours.empty()) continue;
        mask.add(picture->alpha, picture->width, picture->height, x, y);
    }
    return mask;
}

std::uint8_t times(std::uint32_t a, std::uint32_t b) {
    const std::uint32_t product = a * b + 128;
    return std::uint8_t((product + (product >> 8)) >> 8);
}

void drawColours(Bitmap& target, const StandingGlyph& placed, std::uint8_t alpha) {
    const auto& [picture, x, y] = placed;
    const int left = std::max(0, -x);
    const int right = std::min(picture->width, target.width() - x);
    for (int line = std::max(0, -y); line < std::min(picture->height, target.height() - y); ++line) {
        const std::uint8_t* from = picture->colours.data() + std::ptrdiff_t(line) * picture->width * 4;
        std::uint8_t* to = target.row(line + y) + std::ptrdiff_t(x) * 4;
        for (int at = left * 4; at < right * 4; ++at)
            to[at] = std::uint8_t(times(from[at], alpha) + times(to[at], 255U - times(from[at | 3], alpha)));
    }
}

void addBox(cairo_t* cairo, const Rect& box, double radius) {
    const double corner = std::min({radius, box.width / 2, box.height / 2});
    const double turn = std::numbers::pi / 2;
    cairo_new_sub_path(cairo);
    cairo_arc(cairo, box.right() - corner, box.y + corner, corner, -turn, 0);
    cairo_arc(cairo, box.right() - corner, box.bottom() - corner, corner, 0, turn);
    cairo_arc(cairo, box.x + corner, box.bottom() - corner, corner, turn, 2 * turn);
    cairo_arc(cairo, box.x + corner, box.y + corner, corner, 2 * turn, 3 * turn);
    cairo_close_path(cairo);
}

/// Two boxes that touch become one: their corners between them are filled as far as both reach.
void addJoint(cairo_t* cairo, const Rect& above, const Rect& below) {
    const double left = std::max(above.x, below.x);
    const double width = std::min(above.right(), below.right()) - left;
    if (below.y > above.bottom() || width <= 0) return;
    cairo_rectangle(cairo, left, above.middle().y, width, below.middle().y - above.middle().y);
}

}

void fill(Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs, Colour colour) {
    gathered(target, text, glyphs, 0, Take::plain).paint(target, colour);
    for (const auto& glyph : glyphs) {
        const StandingGlyph placed = place(text, glyph, 0);
        if (!placed.picture->colours.empty()) drawColours(target, placed, colour.alpha);
    }
}

void outline(Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs, double width,
             Colour colour) {
    gathered(target, text, glyphs, width, Take::everything).paint(target, colour);
}

void shadow(Bitmap& target, const ShapedText& text, const std::vector<PlacedGlyph>& glyphs, Point offset,
            double sigma, Colour colour) {
    CoverageMask mask = gathered(target, text, glyphs, 0, Take::everything);
    mask.blur(sigma);
    mask.paint(target, colour, int(std::lround(offset.x)), int(std::lround(offset.y)));
}

void boxes(Bitmap& target, const std::vector<Rect>& boxes, double radius, Colour colour) {
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        target.row(0), CAIRO_FORMAT_ARGB32, target.width(), target.height(), int(target.stride()));
    cairo_t* cairo = cairo_create(surface);
    cairo_set_source_rgba(cairo, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0,
                          colour.alpha / 255.0);
    cairo_set_fill_rule(cairo, CAIRO_FILL_RULE_WINDING);
    for (std::size_t index = 0; index < boxes.size(); ++index) {
        addBox(cairo, boxes[index], radius);
        if (index > 0) addJoint(cairo, boxes[index - 1], boxes[index]);
    }
    cairo_fill(cairo);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}

}
