#pragma once

#include "platform/image/draw/Raster.h"
#include "platform/image/kernels/Kernels.h"

#include <vector>

namespace murbo {

/// Weights of a Gaussian, the middle one first, then one to either side in turn, in 1/2^15.
struct Gauss {
    int reach = 0; ///< pixels to either side
    std::vector<std::int16_t> weights{32767};

    /// `farthest` is how many deviations it reaches.
    explicit Gauss(double sigma, double farthest = 3);

    /// Blurs a raster; the result is smaller by what the weights reach at each side. Empty where nothing is
    /// left.
    static Raster blurred(const Raster& sharp, const Gauss& across, const Gauss& down);
};

/// Rows of samples to be weighed across and then down.
struct UnweighedRows {
    const std::uint8_t* samples; ///< the first row's first
    std::ptrdiff_t stride;       ///< bytes from row to row
    Kernels::SampleDepth depth;
    int values; ///< a sample
    int width;
    int height;
};

/// Weighs a plane across and then down, keeping no more rows between than the weights reach: `weigh(rows,
/// gauss, depth, count, out)` makes one row of 15 bits out of several, the middle one first; `take(y, row)`
/// is handed each row of the result, which is smaller by what the weights reach at each side.
template <typename Weigh, typename Take>
void separably(const UnweighedRows& sharp, const Gauss& across, const Gauss& down, const Weigh& weigh,
               const Take& take) {
    const int count = (sharp.width - 2 * across.reach) * sharp.values;
    const int kept = 2 * down.reach + 1;
    std::vector<std::int16_t> ring(std::size_t(kept) * count);
    std::vector<std::int16_t> result(count);
    std::vector<const std::uint8_t*> rows;
    const auto weighed = [&](const Gauss& gauss, Kernels::SampleDepth depth, std::int16_t* out,
                             const auto& at) {
        rows.assign(1, at(0));
        for (int away = 1; away <= gauss.reach; ++away) rows.insert(rows.end(), {at(-away), at(away)});
        weigh(rows, gauss, depth, count, out);
    };
    const auto ringRow = [&](int y) { return &ring[std::size_t(y % kept) * count]; };
    for (int y = 0; y < sharp.height; ++y) {
        weighed(across, sharp.depth, ringRow(y), [&](int away) {
            const int sample = (across.reach + away) * sharp.values;
            return sharp.samples + y * sharp.stride + std::ptrdiff_t(sample) * sharp.depth.bytes;
        });
        if (y < 2 * down.reach) continue;
        weighed(down, {2, 0, 0}, result.data(), [&](int away) {
            return reinterpret_cast<const std::uint8_t*>(ringRow(y - down.reach + away));
        });
        take(y - 2 * down.reach, result.data());
    }
}

/// The weighing of a plain blur.
void weighPlainly(const std::vector<const std::uint8_t*>& rows, const Gauss& gauss,
                  Kernels::SampleDepth depth, int count, std::int16_t* out);

}
