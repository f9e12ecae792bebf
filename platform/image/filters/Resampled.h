#pragma once

#include "platform/image/draw/Raster.h"

/// Pictures that were drawn on a grid coarser or finer than the one where they are shown.
namespace murbo::Resampled {

/// Pixels of a grid that bilinear sampling within an area may read.
PixelRect needed(const Transform& toGrid, const PixelRect& area);
/// Draws a raster as it is seen on another grid, of which `bounds` may be asked.
DrawTile drawing(const Raster& raster, const Transform& toRaster, const PixelRect& bounds);
/// Part of a raster seen on another grid.
Raster raster(const Raster& raster, const Transform& toRaster, const PixelRect& area);

/// Clear all over: what is too large to be held is left out.
DrawTile nothing();

}
