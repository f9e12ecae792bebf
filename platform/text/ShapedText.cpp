#include "platform/text/ShapedText.h"

#include "platform/text/FontChoice.h"
#include "platform/text/GlyphCache.h"
#include "platform/text/Unicode.h"

#include <unicode/uchar.h>
#include <unicode/uscript.h>

namespace murbo {

namespace {

struct UnrefPango {
    void operator()(void* object) const { g_object_unref(object); }
    void operator()(PangoAttrList* list) const { pango_attr_list_unref(list); }
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
using Layout = std::unique_ptr<PangoLayout, UnrefPango>;
using Attributes = std::unique_ptr<PangoAttrList, UnrefPango>;
using Description = std::unique_ptr<PangoFontDescription, UnrefPango>;

constexpr double tolerance = 0.01; // pixels; sums of widths are not exact

bool endsLine(char32_t character) {
    return (character >= 0x0A && character <= 0x0D) || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

/// The text with blanks in place of what is not to be drawn (line ends, controls, broken bytes), byte for
/// byte.
std::string drawable(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = Unicode::next(text, at);
        const bool broken = character == 0xFFFD && text.substr(start, at - start) != "\uFFFD";
        const bool drawn =
            !broken && !endsLine(character) && u_charType(UChar32(character)) != U_CONTROL_CHAR;
        if (drawn)
            result.append(text.substr(start, at - start));
        else
            result.append(at - start, ' ');
    }
    return result;
}

bool isTall(char32_t character) {
    UErrorCode status = U_ZERO_ERROR;
    switch (uscript_getScript(UChar32(character), &status)) {
        case USCRIPT_THAI:
        case USCRIPT_LAO:
        case USCRIPT_KHMER:
        case USCRIPT_MYANMAR:
        case USCRIPT_TIBETAN:
        case USCRIPT_DEVANAGARI:
        case USCRIPT_BENGALI:
        case USCRIPT_TAMIL:
        case USCRIPT_TELUGU:
        case USCRIPT_KANNADA:
        case USCRIPT_MALAYALAM:
        case USCRIPT_GUJARATI:
        case USCRIPT_GURMUKHI:
        case USCRIPT_SINHALA:
        case USCRIPT_ARABIC:
            return true;
        default:
            return false;
    }
}

/// By its first letter that has a direction (UAX #9, P2 and P3).
bool readsFromTheRight(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const auto direction = u_charDirection(UChar32(Unicode::next(text, at)));
        if (direction == U_LEFT_TO_RIGHT) return false;
        if (direction == U_RIGHT_TO_LEFT || direction == U_RIGHT_TO_LEFT_ARABIC) return true;
    }
    return false;
}

/// A stretch that no line break divides.
struct UnbrokenRun {
    std::size_t from = 0;
    std::size_t to = 0;
    bool ends = false; ///< with a line break of the text
};

/// Where the standard allows a line to end within a word, as it does in Japanese and Chinese, we don't: a
/// short caption reads better in whole words.
std::vector<UnbrokenRun> segments(std::string_view text) {
    const auto words = Unicode::wordEnds(text);
    std::vector<UnbrokenRun> found;
    std::size_t from = 0;
    for (const std::size_t to : Unicode::lineEnds(text)) {
        std::size_t last = to - 1;
        while (last > from && (text[last] & 0xC0) == 0x80) --last;
        const bool ends = endsLine(Unicode::next(text, last));
        if (!ends && !std::binary_search(words.begin(), words.end(), to)) continue;
        found.push_back({from, to, ends});
        from = to;
    }
    return found;
}

/// Without the blanks of any kind at either end.
UnbrokenRun bare(std::string_view text, std::size_t from, std::size_t to) {
    UnbrokenRun result{to, to, false};
    bool inside = false;
    for (std::size_t at = from; at < to;) {
        const std::size_t start = at;
        if (Unicode::isBlank(Unicode::next(text, at))) continue;
        if (!inside) result.from = start;
        inside = true;
        result.to = at;
    }
    return result;
}

}

struct ShapedText::Shaping {
    std::string text;  ///< as given
    std::string drawn; ///< of the same bytes, as drawn
    Font font;
    FontChoice choice;
    bool rightToLeft = false;
    bool tall = false;
    std::vector<UnbrokenRun> unbroken;
    std::vector<double> places; ///< of each byte, from the text's start, in reading order
    GlyphCache::Lease cache = GlyphCache::borrow();

    Shaping(std::string given, const Font& asked)
        : text(std::move(given)), drawn(drawable(text)), font(asked) {
        choice = FontChoice::choose(drawn, font);
        rightToLeft = readsFromTheRight(drawn);
        unbroken = segments(text);
        for (std::size_t at = 0; at < text.size() && !tall;) tall = isTall(Unicode::next(text, at));
        places.assign(drawn.size() + 1, 0);
        if (!choice.runs.empty()) measure();
    }

    /// The families that were chosen, as attributes of the bytes from `from` to `to`.
    Attributes attributes(std::size_t from, std::size_t to) const {
        Attributes list(pango_attr_list_new());
        const auto add = [&](PangoAttribute* attribute, std::size_t start, std::size_t end) {
            attribute->start_index = guint(start - from);
            attribute->end_index = guint(end - from);
            pango_attr_list_insert(list.get(), attribute);
        };
        add(pango_attr_fallback_new(FALSE), from, to);
        add(pango_attr_language_new(pango_language_from_string(choice.language.c_str())), from, to);
        for (const auto& run : choice.runs) {
            if (run.to <= from || run.from >= to) continue;
            add(pango_attr_family_new(run.family.c_str()), std::max(run.from, from), std::min(run.to, to));
            add(pango_attr_weight_new(PangoWeight(run.weight)), std::max(run.from, from),
                std::min(run.to, to));
        }
        return list;
    }

    /// The bytes from `from` to `to` on one line.
    Layout layout(std::size_t from, std::size_t to) const {
        const Description description(pango_font_description_new());
        pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
        pango_context_set_base_dir(cache->context(), rightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
        Layout result(pango_layout_new(cache->context()));
        pango_layout_set_auto_dir(result.get(), FALSE);
        pango_layout_set_font_description(result.get(), description.get());
        pango_layout_set_attributes(result.get(), attributes(from, to).get());
        pango_layout_set_text(result.get(), drawn.data() + from, int(to - from));
        return result;
    }

    void measure() {
        const Layout whole = layout(0, drawn.size());
        const PangoLayoutLine* line = pango_layout_get_line_readonly(whole.get(), 0);
        for (GSList* item = line ? line->runs : nullptr; item; item = item->next) {
            auto* run = static_cast<PangoLayoutRun*>(item->data);
            for (int glyph = 0; glyph < run->glyphs->num_glyphs; ++glyph) {
                const int at = run->item->offset + run->glyphs->log_clusters[glyph];
                places[std::size_t(at) + 1] +=
                    double(run->glyphs->glyphs[glyph].geometry.width) / PANGO_SCALE;
            }
        }
        for (std::size_t at = 1; at < places.size(); ++at) places[at] += places[at - 1];
    }

    Line line(std::size_t from, std::size_t to) const {
        const UnbrokenRun inner = bare(text, from, to);
        return {inner.from, inner.to, places[inner.to] - places[inner.from]};
    }

    /// The letters of a stretch too long for a line, as many a line as fit. What is left over begins the
    /// next.
    std::size_t breakUp(std::size_t from, std::size_t to, double width, std::vector<Line>& lines) const {
        std::size_t start = from;
        std::size_t end = from;
        for (const std::size_t letter :
             Unicode::characterEnds(std::string_view(text).substr(from, to - from))) {
            if (end > start && line(start, from + letter).width > width + tolerance) {
                lines.push_back(line(start, end));
                start = end;
            }
            end = from + letter;
        }
        return start;
    }
};

ShapedText::ShapedText(std::string text, const Font& font)
    : shaping(std::make_unique<Shaping>(std::move(text), font)) {}

ShapedText::~ShapedText() = default;

double ShapedText::width() const {
    double widest = 0;
    std::size_t from = 0;
    for (const UnbrokenRun& segment : shaping->unbroken) {
        if (!segment.ends && segment.to != shaping->text.size()) continue;
        widest = std::max(widest, shaping->line(from, segment.to).width);
        from = segment.to;
    }
    return widest;
}

std::vector<ShapedText::Line> ShapedText::lines(double width, std::size_t max) const {
    std::vector<Line> found;
    std::size_t start = 0; // of the line that is being filled
    std::size_t end = 0;
    for (const UnbrokenRun& segment : shaping->unbroken) {
        if (found.size() > max) return found;
        if (end > start && shaping->line(start, segment.to).width > width + tolerance) {
            found.push_back(shaping->line(start, end));
            start = end;
        }
        if (shaping->line(start, segment.to).width > width + tolerance)
            start = shaping->breakUp(start, segment.to, width, found);
        end = segment.to;
        if (!segment.ends) continue;
        found.push_back(shaping->line(start, end));
        start = end;
    }
    if (end > start) found.push_back(shaping->line(start, end));
    return found;
}

std::vector<PlacedGlyph> ShapedText::glyphs(const Line& line, Point start) const {
    std::vector<PlacedGlyph> found;
    if (hopeless() || line.to <= line.from) return found;
    const Layout layout = shaping->layout(line.from, line.to);
    const PangoLayoutLine* laid = pango_layout_get_line_readonly(layout.get(), 0);
    double x = start.x;
    for (GSList* item = laid ? laid->runs : nullptr; item; item = item->next) {
        auto* run = static_cast<PangoLayoutRun*>(item->data);
        for (int index = 0; index < run->glyphs->num_glyphs; ++index) {
            const PangoGlyphInfo& glyph = run->glyphs->glyphs[index];
            const Point pen{x + double(glyph.geometry.x_offset) / PANGO_SCALE,
                            start.y + double(glyph.geometry.y_offset) / PANGO_SCALE};
            const std::size_t at = std::size_t(run->item->offset + run->glyphs->log_clusters[index]);
            const bool drawn = glyph.glyph != PANGO_GLYPH_EMPTY && !(glyph.glyph & PANGO_GLYPH_UNKNOWN_FLAG);
            if (drawn)
                found.push_back(
                    {shaping->cache->keep(run->item->analysis.font), glyph.glyph, pen, line.from + at});
            x += double(glyph.geometry.width) / PANGO_SCALE;
        }
    }
    return found;
}

// Shares of the em. Fonts give very different heights for letters of one size; lines set by these stand
// evenly, and a capital stands in the middle between them.
double ShapedText::ascent() const {
    return (shaping->tall ? 1.1 : 0.95) * shaping->font.size;
}
double ShapedText::descent() const {
    return (shaping->tall ? 0.35 : 0.24) * shaping->font.size;
}

const std::vector<char32_t>& ShapedText::missing() const {
    return shaping->choice.missing;
}

bool ShapedText::hopeless() const {
    return shaping->choice.runs.empty();
}

GlyphCache& ShapedText::cache() const {
    return *shaping->cache;
}

}
