#pragma once

#include "core/model/CaptionStyle.h"
#include "platform/image/Image.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// The picture of one caption: its text with outline, shadow, boxes, stressed and hidden words, on nothing.
namespace CaptionPicture {

/// The widest that a caption may be, as a share of the frame's width.
inline constexpr double widestShare = 0.86;

/// Equal requests give equal pictures.
struct Request {
    std::string text;
    CaptionStyle style; ///< resolved
    std::string fonts;  ///< families to fall back on, separated by commas
    bool big = false;
    std::optional<std::int64_t> reveal; ///< how many words show; none for all
    std::vector<std::int64_t> stress;   ///< indexes of words in the stress colour
    double scale = 1;                   ///< short side of the frame over 1080
    double width = widestShare * 1080;  ///< the widest that a line may be, in pixels

    bool operator==(const Request&) const = default;
};

/// As large as the text and what surrounds it, the origin at its top left. Nothing where there is no font, or
/// where the text comes out smaller than a pixel or too large to hold. Any thread may call.
std::optional<Image> draw(const Request& request);

/// The same as pixels.
std::optional<Bitmap> bitmap(const Request& request);

/// The letters of a request's text that no font of this machine has.
std::vector<char32_t> missing(const Request& request);

}

}

template <>
struct std::hash<murbo::CaptionPicture::Request> {
    std::size_t operator()(const murbo::CaptionPicture::Request& request) const noexcept;
};
