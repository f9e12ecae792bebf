#include "platform/text/GlyphDrawing.h"

#include <cairo-ft.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include "platform/text/Distance.h"
#include "platform/text/HoleFill.h"

#include <pango/pangocairo.h>

namespace murbo::GlyphDrawing {

namespace {

constexpr double largestSide = 8192;

struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using Surface = std::unique_ptr<cairo_surface_t, Release>;
using Context = std::unique_ptr<cairo_t, Release>;

bool isColour(cairo_scaled_font_t* font) {
    const FT_Face face = cairo_ft_scaled_font_lock_face(font);
    const bool colour = face && FT_HAS_COLOR(face);
    if (face) cairo_ft_scaled_font_unlock_face(font);
    return colour;
}

/// An empty picture that holds the glyph and `margin` round it.
GlyphPicture sized(cairo_scaled_font_t* font, const cairo_glyph_t& glyph, double margin) {
    cairo_text_extents_t box;
    cairo_scaled_font_glyph_extents(font, &glyph, 1, &box);
    const double left = std::floor(glyph.x + box.x_bearing - margin);
    const double top = std::floor(glyph.y + box.y_bearing - margin);
    const double width = std::ceil(glyph.x + box.x_bearing + box.width + margin) - left;
    const double height = std::ceil(glyph.y + box.y_bearing + box.height + margin) - top;
    GlyphPicture picture{int(left), int(top), 0, 0, {}, {}};
    const bool visible = box.width > 0 && box.height > 0 && width <= largestSide && height <= largestSide;
    if (visible) picture.width = int(width);
    if (visible) picture.height = int(height);
    return picture;
}

Context context(cairo_surface_t* surface, cairo_scaled_font_t* font, const GlyphPicture& picture) {
    Context cairo(cairo_create(surface));
    cairo_translate(cairo.get(), -picture.left, -picture.top);
    cairo_set_scaled_font(cairo.get(), font);
    cairo_set_tolerance(cairo.get(), 0.05);
    return cairo;
}

std::vector<std::uint8_t> rows(cairo_surface_t* surface, int bytes, int height) {
    cairo_surface_flush(surface);
    const std::uint8_t* from = cairo_image_surface_get_data(surface);
    std::vector<std::uint8_t> all(std::size_t(bytes) * std::size_t(height));
    for (int y = 0; from && y < height; ++y)
        std::memcpy(all.data() + std::ptrdiff_t(bytes) * y,
                    from + std::ptrdiff_t(cairo_image_surface_get_stride(surface)) * y, std::size_t(bytes));
    return all;
}

void drawPlain(GlyphPicture& picture, cairo_scaled_font_t* font, const cairo_glyph_t& glyph, double stroke) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, picture.width, picture.height));
    const Context cairo = context(surface.get(), font, picture);
    cairo_glyph_path(cairo.get(), &glyph, 1);
    cairo_set_line_width(cairo.get(), stroke);
    cairo_set_line_join(cairo.get(), CAIRO_LINE_JOIN_ROUND);
    if (stroke > 0)
        cairo_stroke(cairo.get());
    else
        cairo_fill(cairo.get());
    picture.alpha = rows(surface.get(), picture.width, picture.height);
}

void drawColour(GlyphPicture& picture, cairo_scaled_font_t* font, const cairo_glyph_t& glyph) {
    const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.width, picture.height));
    const Context cairo = context(surface.get(), font, picture);
    cairo_show_glyphs(cairo.get(), &glyph, 1);
    picture.colours = rows(surface.get(), picture.width * 4, picture.height);
    picture.alpha.reserve(picture.colours.size() / 4);
    for (std::size_t at = 3; at < picture.colours.size(); at += 4)
        picture.alpha.push_back(picture.colours[at]);
}

}

GlyphPicture draw(PangoFont* pango, PangoGlyph index, double x, double y, double stroke) {
    cairo_scaled_font_t* font = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(pango));
    const cairo_glyph_t glyph{index, x, y};
    GlyphPicture picture = sized(font, glyph, stroke / 2 + 1);
    if (picture.width == 0) return picture;
    if (!isColour(font)) {
        drawPlain(picture, font, glyph, stroke);
        if (stroke > 0) HoleFill::close(picture.alpha, picture.width, picture.height, stroke * stroke / 4);
    } else {
        drawColour(picture, font, glyph);
        if (stroke <= 0) return picture;
        picture.alpha = Distance::grown(picture.alpha, picture.width, picture.height, stroke / 2);
        picture.colours.clear();
    }
    return picture;
}

}
