#include "platform/image/draw/Canvas.h"

#include "platform/base/Problem.h"
#include "platform/image/draw/Flattening.h"
#include "platform/image/draw/Painter.h"
#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Canvas {
namespace {

/// Rows that are drawn before they become planes: what a near cache holds. Even.
constexpr int stripRows = 64;

void encode(const Tile& strip, Planes& target) {
    const int width = target.width();
    for (int y = strip.area.top; y < strip.area.bottom; ++y)
        Kernels::lumaRow(strip.at(0, y), width, target.plane(0) + y * target.stride(0));
    for (int y = strip.area.top; y < strip.area.bottom; y += 2)
        Kernels::chromaRow(strip.at(0, y), strip.at(0, y + 1), width,
                           target.plane(1) + y / 2 * target.stride(1),
                           target.plane(2) + y / 2 * target.stride(2));
}

}

void draw(const Image& image, Bitmap& target, int top, int bottom) {
    const PixelRect area{0, std::max(top, 0), target.width(), std::min(bottom, target.height())};
    if (area.empty()) return;
    auto layers = layersOf(*image.node(), Transform(), area);
    Painter::paint(layers, {target.row(area.top), target.stride(), area});
}

void draw(const Image& image, Bitmap& target) {
    draw(image, target, 0, target.height());
}

void draw(const Image& image, Planes& target, int top, int bottom) {
    const PixelRect area{0, std::max(top, 0) & ~1, target.width(), std::min(bottom, target.height()) & ~1};
    if (area.empty()) return;
    auto layers = layersOf(*image.node(), Transform(), area);
    const std::ptrdiff_t stride = std::ptrdiff_t(area.width()) * 4;
    const auto strip = std::make_unique_for_overwrite<std::uint8_t[]>(stride * stripRows);
    for (int y = area.top; y < area.bottom; y += stripRows) {
        const Tile tile{strip.get(), stride, {0, y, area.right, std::min(y + stripRows, area.bottom)}};
        Painter::paint(layers, tile);
        encode(tile, target);
    }
}

void draw(const Image& image, Planes& target) {
    draw(image, target, 0, target.height());
}

Bitmap bitmap(const Image& image, const Rect& rect) {
    const auto area = PixelRect::touching(rect);
    Bitmap result = Bitmap::toBeFilled(area.width(), area.height());
    auto layers = layersOf(*image.node(), Transform(), area);
    Painter::paint(layers, {result.row(0), result.stride(), area});
    return result;
}

}
