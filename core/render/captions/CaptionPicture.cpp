#include "core/render/captions/CaptionPicture.h"

#include "core/render/captions/CaptionLayout.h"
#include "core/render/plan/CaptionText.h"
#include "platform/text/TextPainter.h"
#include "platform/text/Unicode.h"

namespace murbo::CaptionPicture {

namespace {

constexpr double defaultWeight = 0.56;
constexpr double defaultSize = 84;
constexpr double defaultStroke = 30; // percent of the font size
constexpr double widestStroke = 200;
constexpr double defaultBigScale = 1.7;
constexpr std::string_view defaultStress = "FFD60A";
constexpr std::string_view defaultFill = "FFFFFF";
constexpr Colour shadowColour{0, 0, 0, 179}; // 0.7

const std::string& textOf(const std::optional<std::string>& value) {
    static const std::string none;
    return value ? *value : none;
}

double sizeOf(const Request& request) {
    const double big = request.big ? request.style.bigScale.value_or(defaultBigScale) : 1;
    return request.style.size.value_or(defaultSize) * big * request.scale;
}

bool isDrawable(const Request& request) {
    return CaptionLayout::isDrawable(request.text, sizeOf(request), request.width);
}

/// What a request says, worked out: with its defaults filled in and its colours read.
struct Lettering {
    explicit Lettering(const Request& request);

    std::string text;
    double size; // pixels
    Font font;
    Colour fill;
    Colour stress;
    std::optional<Colour> outline;
    std::optional<Colour> pill;
    double stroke = 0; // pixels; 0 without an outline
    bool shadow;
};

Font fontOf(const Request& request) {
    const std::string& own = textOf(request.style.font);
    return Fonts::font(own.empty() ? request.fonts : own, request.style.weight.value_or(defaultWeight),
                       sizeOf(request));
}

Lettering::Lettering(const Request& request)
    : text(request.style.upper.value_or(false) ? Unicode::upper(request.text) : request.text),
      size(sizeOf(request)),
      font(fontOf(request)),
      outline(Colour::hex(textOf(request.style.outline))),
      pill(Colour::hex(textOf(request.style.pill))),
      shadow(request.style.shadow.value_or(false)) {
    const CaptionStyle& style = request.style;
    const std::string& big = textOf(style.bigFill);
    const std::string_view plain = style.fill ? std::string_view(*style.fill) : defaultFill;
    fill = Colour::hex(request.big && !big.empty() ? std::string_view(big) : plain).value_or(Colour::white);
    stress = Colour::hex(big.empty() ? defaultStress : std::string_view(big)).value_or(Colour::white);
    const double percent = style.stroke.value_or(defaultStroke);
    if (outline && percent > 0) stroke = std::min(percent, widestStroke) / 100 * size;
}

/// The words of the text, and which glyphs stand in which colour.
class Colouring {
public:
    Colouring(const Request& request, const std::string& text)
        : words(CaptionText::words(text)), shown(text.size()) {
        const auto count = std::int64_t(words.size());
        if (request.reveal && *request.reveal < count)
            shown = *request.reveal > 0 ? words[std::size_t(*request.reveal - 1)].to : 0;
        for (const std::int64_t index : request.stress)
            if (index >= 0 && index < count) stressed.push_back(words[std::size_t(index)]);
    }

    bool isShown(const PlacedGlyph& glyph) const { return glyph.at < shown; }
    bool isStressed(const PlacedGlyph& glyph) const {
        return std::any_of(stressed.begin(), stressed.end(),
                           [&](auto word) { return glyph.at >= word.from && glyph.at < word.to; });
    }

private:
    std::vector<CaptionText::Range> words;
    std::vector<CaptionText::Range> stressed;
    std::size_t shown; ///< what begins before this byte
};

void drawText(Bitmap& bitmap, const Lettering& lettering, const ShapedText& text,
              std::vector<PlacedGlyph> glyphs, const Colouring& colouring) {
    std::erase_if(glyphs, [&](const auto& glyph) { return !colouring.isShown(glyph); });
    const double size = lettering.size;
    if (lettering.stroke > 0)
        TextPainter::outline(bitmap, text, glyphs, lettering.stroke, *lettering.outline);
    if (lettering.shadow)
        TextPainter::shadow(bitmap, text, glyphs, {0, 0.05 * size}, 0.15 * size, shadowColour);
    const auto stressed = std::stable_partition(
        glyphs.begin(), glyphs.end(), [&](const auto& glyph) { return !colouring.isStressed(glyph); });
    TextPainter::fill(bitmap, text, {glyphs.begin(), stressed}, lettering.fill);
    if (stressed != glyphs.end()) TextPainter::fill(bitmap, text, {stressed, glyphs.end()}, lettering.stress);
}

}

std::optional<Image> draw(const Request& request) {
    auto pixels = bitmap(request);
    return pixels ? std::optional(Image::bitmap(std::move(*pixels))) : std::nullopt;
}

std::optional<Bitmap> bitmap(const Request& request) {
    if (!isDrawable(request)) return {};
    const Lettering lettering(request);
    const ShapedText text(lettering.text, lettering.font);
    if (text.hopeless()) return {};
    const auto layout = CaptionLayout::lay(text, {.size = lettering.size,
                                                  .maxWidth = std::round(request.width),
                                                  .pill = lettering.pill.has_value(),
                                                  .stroke = lettering.stroke});
    if (!layout) return {};
    Bitmap target(layout->width, layout->height);
    if (lettering.pill) TextPainter::boxes(target, layout->boxes, 0.24 * lettering.size, *lettering.pill);
    drawText(target, lettering, text, layout->glyphs, Colouring(request, lettering.text));
    return target;
}

std::vector<char32_t> missing(const Request& request) {
    if (!isDrawable(request)) return {};
    const Lettering lettering(request);
    return ShapedText(lettering.text, lettering.font).missing();
}

}

std::size_t std::hash<murbo::CaptionPicture::Request>::operator()(
    const murbo::CaptionPicture::Request& request) const noexcept {
    // Captions of one video share all but their words, so those and what moves within a caption are enough.
    std::size_t mixed = std::hash<std::string>()(request.text);
    const auto mix = [&](std::size_t part) { mixed = (mixed ^ part) * 0x9E3779B97F4A7C15u; };
    mix(std::size_t(request.reveal.value_or(-1)));
    mix(request.big);
    mix(std::hash<double>()(request.scale));
    mix(std::hash<double>()(request.width));
    mix(std::hash<double>()(request.style.size.value_or(0)));
    mix(std::hash<std::string>()(request.style.fill.value_or("")));
    return mixed ^ (mixed >> 31);
}
