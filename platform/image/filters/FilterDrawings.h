#pragma once

#include "platform/image/draw/Layers.h"

/// How each filter is drawn: `place` is upright, `of` the picture without the filter. What is returned draws
/// any part of `bounds`.
namespace murbo::FilterDrawings {

/// Changes `count` pixels of row y in place, the first of them at x.
using Row = std::function<void(int x, int y, int count, std::uint8_t* pixels)>;

Row row(const ColourMatrix& filter);
Row row(const Posterised& filter);
Row row(const ColourCube& filter, std::shared_ptr<const std::vector<std::uint32_t>> table);
/// `body` is the picture's place.
Row row(const Vignetted& filter, const Rect& body, const PixelRect& bounds);

/// Whether a blur so placed is to be seen at all.
bool blurs(const Blurred& filter, const Transform& place);
/// `then` is done to the blurred pixels, on whatever grid they are.
Layer::Draw draw(const Blurred&, const Image::Node& of, const Transform& place, const PixelRect& bounds,
                 int depth, const std::vector<Row>& then = {});
Layer::Draw draw(const Bloomed&, const Image::Node& of, const Transform& place, const PixelRect& bounds,
                 int depth);
Layer::Draw draw(const Pixellated&, const Image::Node& of, const Transform& place, const PixelRect& bounds,
                 int depth);
Layer::Draw draw(const Inked&, const Image::Node& of, const Transform& place, const PixelRect& bounds,
                 int depth);
Layer::Draw draw(const Taped&, const Image::Node& of, const Transform& place, const PixelRect& bounds,
                 int depth);

/// Deviations that a bloom's wide glow has for one of its narrow one.
inline constexpr double wideGlow = 4;

/// A tape's lines lie this far apart, in the picture's pixels, half of it dark.
inline constexpr double linePeriod = 6;

/// Clear all over: what can't be held is left out.
Layer::Draw nothing();

/// The picture as it is.
Layer::Draw unchanged(const Image::Node& of, const Transform& place, const PixelRect& bounds, int depth);

/// Pixels of a grid that bilinear sampling within an area may read.
PixelRect sampled(const Transform& toGrid, const PixelRect& area);
/// Draws a raster as it is seen on another grid, of which `bounds` may be asked.
Layer::Draw sampling(const Raster& raster, const Transform& toGrid, const PixelRect& bounds);
/// Part of a raster seen on another grid.
Raster resampled(const Raster& raster, const Transform& toRaster, const PixelRect& area);

/// Hands a tile on in strips that stay in a near cache.
template <typename Take>
void inStrips(const Tile& tile, const Take& take) {
    constexpr int pixels = 1 << 14;
    const auto& area = tile.area;
    const int rows = std::max(pixels / area.width(), 1);
    for (int top = area.top; top < area.bottom; top += rows)
        take(tile.part({area.left, top, area.right, std::min(top + rows, area.bottom)}));
}

}
