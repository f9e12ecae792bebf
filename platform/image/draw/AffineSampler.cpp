#include "platform/image/draw/AffineSampler.h"

namespace murbo {

using Kernels::Line;

AffineSampler::AffineSampler(Raster given, const Transform& toGrid)
    : raster(std::move(given)),
      acrossU(Line::through(toGrid.tx + 0.5 * (toGrid.a + toGrid.c) - 0.5, toGrid.a)),
      acrossV(Line::through(toGrid.ty + 0.5 * (toGrid.b + toGrid.d) - 0.5, toGrid.b)),
      downU(Line::through(0, toGrid.c)),
      downV(Line::through(0, toGrid.d)) {
    // Whole texels are taken off last, so that a position does not depend on which area was drawn.
    acrossU.start -= raster.area.left * Line::one;
    acrossV.start -= raster.area.top * Line::one;
}

void AffineSampler::fill(const Tile& tile) const {
    const auto& bitmap = raster.bitmap;
    const Kernels::Texture texture{bitmap.row(0), bitmap.stride(), bitmap.width(), bitmap.height()};
    for (int y = tile.area.top; y < tile.area.bottom; ++y) {
        const Line u{acrossU.start + downU.at(y), acrossU.step};
        const Line v{acrossV.start + downV.at(y), acrossV.step};
        Kernels::affineRow(texture, u, v, tile.area.left, tile.area.right, tile.at(tile.area.left, y));
    }
}

}
