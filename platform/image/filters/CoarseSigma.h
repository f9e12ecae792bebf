#pragma once

namespace murbo {

/// A blur is drawn on a coarser grid where it would leave no detail to see: along one axis, how much coarser,
/// and the deviation that is left to do there.
struct CoarseSigma {
    double shrink = 1; ///< a power of two
    double sigma = 0;

    explicit CoarseSigma(double sigma);
};

}
