#include "platform/image/filters/FilterDrawings.h"

#include "platform/image/draw/Painter.h"

namespace murbo::FilterDrawings {

Layer::Draw nothing() {
    return [](const Tile& tile) {
        for (int y = tile.area.top; y < tile.area.bottom; ++y)
            Kernels::fill(0, tile.area.width(), tile.at(tile.area.left, y));
    };
}

Layer::Draw unchanged(const Image::Node& of, const Transform& place, const PixelRect& bounds, int depth) {
    auto layers = std::make_shared<Layers>(layersOf(of, place, bounds, depth));
    return [layers](const Tile& tile) { Painter::paint(*layers, tile); };
}

Raster resampled(const Raster& raster, const Transform& toRaster, const PixelRect& area) {
    Raster result = Raster::of(area, raster.opaque);
    Sampler(raster, toRaster, area, raster.area).fill(result.tile());
    return result;
}

PixelRect sampled(const Transform& toGrid, const PixelRect& area) {
    return PixelRect::touching(toGrid.apply(area.rect())).grown(2, 2);
}

Layer::Draw sampling(const Raster& raster, const Transform& toGrid, const PixelRect& bounds) {
    auto sampler = std::make_shared<Sampler>(raster, toGrid, bounds, raster.area);
    return [sampler](const Tile& tile) { sampler->fill(tile); };
}

}
