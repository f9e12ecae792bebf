#pragma once

#include "platform/image/Raster.h"

#include <vector>

namespace murbo {

/// Weights of a Gaussian, the middle one first, then one to either side in turn, in 1/2^15.
struct Gauss {
    int reach = 0; ///< pixels to either side
    std::vector<std::int16_t> weights{32767};

    explicit Gauss(double sigma);

    /// Blurs a raster; the result is smaller by what the weights reach at each side. Empty where nothing is
    /// left.
    static Raster blurred(const Raster& sharp, const Gauss& across, const Gauss& down);
};

/// A blur is drawn on a coarser grid where it would leave no detail to see: along one axis, how much coarser,
/// and the deviation that is left to do there.
struct CoarseSigma {
    double shrink = 1; ///< a power of two
    double sigma = 0;

    explicit CoarseSigma(double sigma);
};

}
