#pragma once

#include "platform/text/GlyphPicture.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <pango/pangocairo.h>

namespace murbo {

/// What shaping and drawing text needs, and one thread at a time may use: a font map over the shared fonts,
/// and the glyphs drawn so far. Only for this room.
///
/// Kept in a pool rather than a thread: whoever draws text borrows one, so that threads may come and go, and
/// there are as many as ever drew at once. Which one is used never shows in a picture.
class GlyphCache {
public:
    GlyphCache();
    ~GlyphCache();
    GlyphCache(const GlyphCache&) = delete;

    PangoContext* context() const { return pango; }

    /// The font, kept as long as this cache, so that its address is no other font's.
    PangoFont* keep(PangoFont* font);

    /// The pixels of a glyph with its pen at a quarter of a pixel (0 to 3 each way). `stroke` 0 fills it,
    /// above 0 draws a line of that width along its outline, with round joins.
    std::shared_ptr<const GlyphPicture> picture(PangoFont* font, PangoGlyph glyph, int quarterX, int quarterY,
                                                double stroke);

    /// Whether so much is kept that it is better thrown away, as a whole: a font map keeps every size it has
    /// seen.
    bool full() const { return bytes > maxBytes || fonts.size() > maxFonts; }

    struct Return {
        void operator()(GlyphCache* cache) const;
    };
    using Lease = std::unique_ptr<GlyphCache, Return>;
    /// One of the pool, handed back when the lease ends.
    static Lease borrow();

private:
    struct Key {
        PangoFont* font;
        PangoGlyph glyph;
        int quarters;
        double stroke;
        bool operator==(const Key&) const = default;
    };
    struct Hash {
        std::size_t operator()(const Key& key) const;
    };
    static constexpr std::size_t maxBytes = 16 << 20;
    static constexpr std::size_t maxFonts = 256; // sizes count too

    PangoFontMap* map;
    PangoContext* pango;
    std::unordered_set<PangoFont*> fonts;
    std::unordered_map<Key, std::shared_ptr<const GlyphPicture>, Hash> pictures;
    std::size_t bytes = 0;
};

}
