#include "platform/image/filters/Resampled.h"

#include "platform/image/draw/AxisSampler.h"
#include "platform/image/kernels/Kernels.h"

namespace murbo::Resampled {

PixelRect needed(const Transform& toGrid, const PixelRect& area) {
    return PixelRect::touching(toGrid.apply(area.rect())).grown(2, 2);
}

DrawTile drawing(const Raster& raster, const Transform& toRaster, const PixelRect& bounds) {
    auto sampler = std::make_shared<AxisSampler>(raster, toRaster, bounds, raster.area);
    return [sampler](const Tile& tile) { sampler->fill(tile); };
}

Raster raster(const Raster& raster, const Transform& toRaster, const PixelRect& area) {
    Raster result = Raster::of(area, raster.opaque);
    AxisSampler(raster, toRaster, area, raster.area).fill(result.tile());
    return result;
}

DrawTile nothing() {
    return [](const Tile& tile) {
        for (int y = tile.area.top; y < tile.area.bottom; ++y)
            Kernels::fill(0, tile.area.width(), tile.at(tile.area.left, y));
    };
}

}
