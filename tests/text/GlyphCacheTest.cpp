#include "platform/text/GlyphCache.h"
#include "platform/text/GlyphDrawing.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A font of a size, in a cache's own map.
PangoFont* fontIn(GlyphCache& cache, int size) {
    PangoFontDescription* description = pango_font_description_from_string("Sans");
    pango_font_description_set_absolute_size(description, size * PANGO_SCALE);
    PangoFont* font = pango_context_load_font(cache.context(), description);
    pango_font_description_free(description);
    cache.keep(font);
    g_object_unref(font);
    return font;
}

}

TEST(GlyphCache, drawsEachGlyphOncePerPlaceAndLine) {
    GlyphCache cache;
    auto* font = fontIn(cache, 40);
    auto* other = fontIn(cache, 41);
    const auto first = cache.picture(font, 40, 1, 2, 3);
    EXPECT_EQ(cache.picture(font, 40, 1, 2, 3), first);
    const auto drawn = GlyphDrawing::draw(font, 40, 0.25, 0.5, 3);
    EXPECT_EQ(std::tie(first->left, first->top, first->alpha), std::tie(drawn.left, drawn.top, drawn.alpha));
    EXPECT_NE(cache.picture(font, 41, 1, 2, 3), first);
    std::set<std::shared_ptr<const GlyphPicture>> places;
    for (int place = 0; place < 16; ++place) places.insert(cache.picture(font, 40, place / 4, place % 4, 3));
    EXPECT_EQ(places.size(), 16U) << "each quarter of a pixel has its own";
    EXPECT_NE(cache.picture(font, 40, 1, 2, 0), first);
    EXPECT_NE(cache.picture(other, 40, 1, 2, 3), first);
}

TEST(GlyphCache, isFullOfManySizesOrBytes) {
    GlyphCache sizes;
    for (int size = 0; size < 256; ++size) fontIn(sizes, 10 + size);
    EXPECT_FALSE(sizes.full());
    fontIn(sizes, 300);
    EXPECT_TRUE(sizes.full());
    GlyphCache bytes;
    auto* font = fontIn(bytes, 2000);
    for (int glyph = 36; glyph < 60 && !bytes.full(); ++glyph)
        bytes.picture(font, PangoGlyph(glyph), 0, 0, 0);
    EXPECT_TRUE(bytes.full());
}

TEST(GlyphCache, isLentToOneAtATimeAndUsedAgain) {
    auto first = GlyphCache::borrow();
    auto second = GlyphCache::borrow();
    EXPECT_NE(first.get(), second.get());
    const auto* free = first.get();
    first.reset();
    EXPECT_EQ(GlyphCache::borrow().get(), free);
    auto full = GlyphCache::borrow();
    for (int size = 0; size < 300; ++size) fontIn(*full, 10 + size);
    full.reset();
    const auto next = GlyphCache::borrow();
    const auto another = GlyphCache::borrow();
    EXPECT_FALSE(next->full() || another->full()) << "a full one is thrown away";
}
