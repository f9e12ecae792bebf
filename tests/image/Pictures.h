#pragma once

#include "platform/image/Image.h"
#include "platform/image/draw/Canvas.h"

#include <functional>

namespace murbo::Pictures {

/// A pixel as four channels, for messages that can be read.
struct Pixel {
    int red, green, blue, alpha;
    bool operator==(const Pixel&) const = default;
};
std::ostream& operator<<(std::ostream& stream, const Pixel& pixel);

Pixel at(const Bitmap& bitmap, int x, int y);

/// The largest difference of a channel.
int difference(const Pixel& one, const Pixel& other);
int difference(const Bitmap& one, const Bitmap& other);
int difference(const Planes& one, const Planes& other);

Bitmap drawn(const Image& image, int width, int height);

inline constexpr Blend blends[] = {Blend::normal,  Blend::multiply, Blend::screen,
                                   Blend::overlay, Blend::add,      Blend::softLight};

/// A rectangle of one colour.
Image box(const Rect& rect, Colour colour);

/// Calls `work` with each place of a picture, row by row.
template <typename Work>
void everywhere(int width, int height, const Work& work) {
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) work(x, y);
}

/// How many pixels are covered, in parts.
double coverage(const Bitmap& bitmap);

/// Colours by place: fine detail without order, and soft ones with one steep edge.
Colour speckled(int x, int y);
Colour wavy(int x, int y);

/// A bitmap of opaque colours by place.
Bitmap bitmapOf(int width, int height, const std::function<Colour(int x, int y)>& colour);

/// A value of 0 to 1 for each sample of a plane (0 Y', 1 Cb, 2 Cr, 3 alpha), at the sample's middle in the
/// plane's share of the picture, 0 to 1.
using Samples = std::function<double(int plane, double x, double y)>;

/// A frame without planes.
Frame form(int width, int height, Frame::Layout layout = Frame::Layout::chroma420, int depth = 8);

/// Fills planes of the kind that `form` describes (its size, layout, depth and flags) with codes from the
/// whole range.
Frame frameOf(Frame form, const Samples& samples);

/// Smooth in all planes, different in each.
double waves(int plane, double x, double y);

}
