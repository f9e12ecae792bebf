#include "platform/image/Gauss.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

/// Deviations up to which a Gaussian counts.
constexpr double farthest = 3;
/// The least deviation that a coarse grid still shows smoothly.
constexpr double leastCoarse = 3;
/// What averaging onto a coarse grid and sampling from it blur by themselves, in its pixels, squared.
constexpr double gridVariance = 0.25;

/// Rows to be blended, in the order of the weights.
template <typename At>
void around(int reach, std::vector<const std::uint8_t*>& rows, const At& at) {
    rows.assign(1, at(0));
    for (int away = 1; away <= reach; ++away) {
        rows.push_back(at(-away));
        rows.push_back(at(away));
    }
}

void blend(const std::vector<const std::uint8_t*>& rows, const Gauss& gauss, Kernels::Depth depth, int count,
           std::int16_t* out) {
    Kernels::blendRows(rows.data(), gauss.weights.data(), int(rows.size()), depth, count, out);
}

}

Gauss::Gauss(double sigma) : reach(std::max(int(std::ceil(sigma * farthest)), 0)) {
    std::vector<double> shares{1};
    double sum = 1;
    for (int away = 1; away <= reach; ++away) {
        shares.push_back(std::exp(-0.5 * away * away / (sigma * sigma)));
        sum += 2 * shares.back();
    }
    for (int away = 1; away <= reach; ++away)
        weights.insert(weights.end(), 2, std::int16_t(std::lround(shares[away] / sum * 32768)));
}

CoarseSigma::CoarseSigma(double given) : sigma(given) {
    if (given < 2 * leastCoarse) return;
    shrink = std::exp2(std::floor(std::log2(given / leastCoarse)));
    sigma = std::sqrt(given / shrink * (given / shrink) - gridVariance);
}

Raster Gauss::blurred(const Raster& sharp, const Gauss& across, const Gauss& down) {
    const PixelRect area = sharp.area.grown(-across.reach, -down.reach);
    if (sharp.bitmap.empty() || area.empty()) return {};
    Raster result = Raster::of(area, sharp.opaque);
    const int values = area.width() * 4;
    const int kept = 2 * down.reach + 1;
    std::vector<std::int16_t> ring(std::size_t(kept) * values);
    std::vector<std::int16_t> sum(values);
    std::vector<const std::uint8_t*> rows;
    const auto ringRow = [&](int y) { return &ring[std::size_t(y % kept) * values]; };
    for (int y = 0; y < sharp.area.height(); ++y) {
        const auto* middle = sharp.bitmap.row(y) + across.reach * 4;
        around(across.reach, rows, [&](int away) { return middle + away * 4; });
        blend(rows, across, {1, 7, 0}, values, ringRow(y));
        if (y < 2 * down.reach) continue;
        around(down.reach, rows, [&](int away) {
            return reinterpret_cast<const std::uint8_t*>(ringRow(y - down.reach + away));
        });
        blend(rows, down, {2, 0, 0}, values, sum.data());
        Kernels::packPixels(sum.data(), area.width(), sharp.opaque, result.bitmap.row(y - 2 * down.reach));
    }
    return result;
}

}
