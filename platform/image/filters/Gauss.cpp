#include "platform/image/filters/Gauss.h"

#include <algorithm>
#include <cmath>

namespace murbo {

Gauss::Gauss(double sigma, double farthest) : reach(std::max(int(std::ceil(sigma * farthest)), 0)) {
    std::vector<double> shares{1};
    double sum = 1;
    for (int away = 1; away <= reach; ++away) {
        shares.push_back(std::exp(-0.5 * away * away / (sigma * sigma)));
        sum += 2 * shares.back();
    }
    for (int away = 1; away <= reach; ++away)
        weights.insert(weights.end(), 2, std::int16_t(std::lround(shares[away] / sum * 32768)));
}

void weighPlainly(const std::vector<const std::uint8_t*>& rows, const Gauss& gauss,
                  Kernels::SampleDepth depth, int count, std::int16_t* out) {
    Kernels::blendRows(rows.data(), gauss.weights.data(), int(rows.size()), depth, count, out);
}

Raster Gauss::blurred(const Raster& sharp, const Gauss& across, const Gauss& down) {
    const PixelRect area = sharp.area.grown(-across.reach, -down.reach);
    if (sharp.bitmap.empty() || area.empty()) return {};
    Raster result = Raster::of(area, sharp.opaque);
    separably(
        {sharp.bitmap.row(0), sharp.bitmap.stride(), {1, 7, 0}, 4, sharp.area.width(), sharp.area.height()},
        across, down, weighPlainly, [&](int y, const std::int16_t* row) {
            Kernels::packPixels(row, area.width(), sharp.opaque, result.bitmap.row(y));
        });
    return result;
}

}
