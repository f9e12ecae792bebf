#include "platform/text/GlyphCache.h"

#include "platform/text/FontSet.h"
#include "platform/text/GlyphDrawing.h"

#include <mutex>

#include <pango/pangofc-fontmap.h>

namespace murbo {

namespace {

struct Pool {
    std::mutex lock;
    std::vector<std::unique_ptr<GlyphCache>> idle;
};

Pool& pool() {
    // Never destroyed: threads may still draw while the program ends.
    static Pool& shared = *new Pool;
    return shared;
}

/// Widths that don't depend on the size: a preview breaks and spaces its lines as the export does.
void leaveUnhinted(PangoContext* context) {
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
    pango_context_set_round_glyph_positions(context, FALSE);
}

}

GlyphCache::GlyphCache() : map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)) {
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(map), FontSet::shared().config());
    pango = pango_font_map_create_context(map);
    leaveUnhinted(pango);
}

GlyphCache::~GlyphCache() {
    for (PangoFont* font : fonts) g_object_unref(font);
    g_object_unref(pango);
    g_object_unref(map);
}

std::shared_ptr<const GlyphPicture> GlyphCache::picture(PangoFont* font, PangoGlyph glyph, int quarterX,
                                                        int quarterY, double stroke) {
    auto& found = pictures[{font, glyph, quarterX * 4 + quarterY, stroke}];
    if (found) return found;
    found = std::make_shared<GlyphPicture>(
        GlyphDrawing::draw(font, glyph, quarterX * 0.25, quarterY * 0.25, stroke));
    bytes += sizeof(GlyphPicture) + found->alpha.size() + found->colours.size();
    return found;
}

PangoFont* GlyphCache::keep(PangoFont* font) {
    if (fonts.insert(font).second) g_object_ref(font);
    return font;
}

std::size_t GlyphCache::Hash::operator()(const Key& key) const {
    std::size_t hash = std::hash<const void*>()(key.font);
    for (const std::size_t part :
         {std::size_t(key.glyph), std::size_t(key.quarters), std::hash<double>()(key.stroke)})
        hash = (hash ^ part) * 0x9E3779B97F4A7C15u;
    return hash ^ (hash >> 29);
}

GlyphCache::Lease GlyphCache::borrow() {
    {
        const std::lock_guard guard(pool().lock);
        if (!pool().idle.empty()) {
            Lease lease(pool().idle.back().release());
            pool().idle.pop_back();
            return lease;
        }
    }
    return Lease(new GlyphCache);
}

void GlyphCache::Return::operator()(GlyphCache* cache) const {
    std::unique_ptr<GlyphCache> back(cache);
    if (back->full()) return;
    const std::lock_guard guard(pool().lock);
    pool().idle.push_back(std::move(back));
}

}
