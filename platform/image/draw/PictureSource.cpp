#include "platform/image/draw/PictureSource.h"

namespace murbo {

Raster PictureSource::raster(const Transform& toGrid, const PixelRect& area) const {
    if (!Raster::holds(area)) return {};
    Raster raster = Raster::of(area, picture.covers(toGrid, area.rect()));
    drawing(toGrid, area)(raster.tile());
    return raster;
}

}
