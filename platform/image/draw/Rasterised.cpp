#include "platform/image/draw/Rasterised.h"

#include "platform/image/draw/Painter.h"

namespace murbo {

bool covers(const Image::Node& node, const Transform& place, const PixelRect& area) {
    if (node.opaque.isEverything()) return true;
    return keepsAxes(place) && place.apply(node.opaque).contains(area.rect());
}

Raster painted(Layers layers, const Image::Node& node, const Transform& toGrid, const PixelRect& area) {
    Raster raster = Raster::of(area, covers(node, toGrid, area));
    Painter::paint(layers, raster.tile());
    return raster;
}

Raster rasterised(const Image::Node& node, const Transform& toGrid, const PixelRect& area, int depth) {
    if (!Raster::holds(area)) return {};
    return painted(layersOf(node, toGrid, area, depth), node, toGrid, area);
}

Raster premultiplied(const Frame& frame) {
    const PixelRect stored{0, 0, frame.width, frame.height};
    if (!Raster::holds(stored)) return {};
    Raster raster = Raster::of(stored, false);
    Sampler(frame, Transform(), stored, stored).fill(raster.tile());
    if (frame.layout != Frame::Layout::bgra) return raster;
    for (int y = 0; y < frame.height; ++y) Kernels::premultiply(raster.bitmap.row(y), frame.width);
    return raster;
}

}
