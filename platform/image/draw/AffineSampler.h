#pragma once

#include "platform/image/draw/AxisSampler.h"

namespace murbo {

/// Pixels of a raster seen through any transform, bilinear. What scales down is scaled down before (see
/// `Layers`), so a turn never skips pixels.
class AffineSampler {
public:
    /// `toGrid` leads from the canvas to the raster's grid.
    AffineSampler(Raster raster, const Transform& toGrid);

    /// Draws every pixel of the tile; beyond the raster its edge repeats.
    void fill(const Tile& tile) const;

private:
    Raster raster;
    Kernels::Line acrossU, acrossV, downU, downV;
};

}
