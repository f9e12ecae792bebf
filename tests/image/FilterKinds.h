#pragma once

#include "platform/image/Filter.h"
#include "tests/image/Pictures.h"

/// One filter of each kind, and a picture to try them on.
namespace murbo::FilterKinds {

inline constexpr int side = 192;
inline constexpr Rect whole{0, 0, side, side};

/// Soft colours, and one steep edge.
Image picture();

/// What a filter makes of one colour.
Pictures::Pixel seen(Colour colour, const Filter& filter);

/// What a filter makes of a picture on black whose edges repeat.
Bitmap filtered(const Image& picture, const Filter& filter);

/// A cube that changes red and blue over and lets through.
Filter swapping(float alpha);

/// By their names.
std::vector<std::pair<std::string_view, Filter>> all();

}
