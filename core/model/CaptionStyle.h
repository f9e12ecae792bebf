#pragma once

#include "platform/base/Field.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace murbo {

/// How captions look, as a set of overrides: what a style leaves out comes from the one beneath it.
/// An empty text is a value: it turns a colour of the style beneath off.
struct CaptionStyle {
    std::optional<std::string> id;      ///< a preset's id
    std::optional<std::string> name;    ///< a preset's name
    std::optional<std::string> base;    ///< id of the preset that this one builds on
    std::optional<std::string> font;    ///< family names separated by commas
    std::optional<double> weight;       ///< 0 to 1
    std::optional<double> size;         ///< pixels at a frame whose short side is 1080
    std::optional<std::string> fill;    ///< text colour, RRGGBB
    std::optional<std::string> outline; ///< outline colour; empty for none
    std::optional<double> stroke;       ///< outline width in percent of the font size
    std::optional<bool> shadow;
    std::optional<std::string> pill;    ///< colour of a box behind the text; empty for none
    std::optional<double> bigScale;     ///< size factor of big captions
    std::optional<std::string> bigFill; ///< colour of big captions and stressed words; empty for the fill
    std::optional<double> y;            ///< height of the captions, a fraction of the frame from the top
    std::optional<bool> seam;           ///< captions follow the seam of a split
    std::optional<std::int64_t> most;   ///< longest caption in characters
    std::optional<std::string> motion;  ///< how a caption comes in
    std::optional<std::string> exit;    ///< how it leaves
    std::optional<bool> upper;          ///< upper case

    /// The presets that every project has: pop, clean, bold, story, boxed.
    static const std::array<CaptionStyle, 5>& builtIn();

    /// This style, with what it leaves out taken from `beneath`.
    CaptionStyle over(const CaptionStyle& beneath) const;

    bool operator==(const CaptionStyle&) const = default;
    static constexpr auto fields(auto visit) {
        using Style = CaptionStyle;
        return visit(
            field("id", &Style::id), field("name", &Style::name), field("base", &Style::base),
            field("font", &Style::font), field("weight", &Style::weight), field("size", &Style::size),
            field("fill", &Style::fill), field("outline", &Style::outline), field("stroke", &Style::stroke),
            field("shadow", &Style::shadow), field("pill", &Style::pill), field("bigScale", &Style::bigScale),
            field("bigFill", &Style::bigFill), field("y", &Style::y), field("seam", &Style::seam),
            field("most", &Style::most), field("motion", &Style::motion), field("exit", &Style::exit),
            field("upper", &Style::upper));
    }
};

}
