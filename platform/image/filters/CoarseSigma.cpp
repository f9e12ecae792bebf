#include "platform/image/filters/CoarseSigma.h"

#include <cmath>

namespace murbo {
namespace {

/// The smallest deviation that a coarse grid still shows smoothly.
constexpr double minCoarse = 3;
/// What averaging onto a coarse grid and sampling from it blur by themselves, in its pixels, squared.
constexpr double gridVariance = 0.25;

}

CoarseSigma::CoarseSigma(double given) : sigma(given) {
    if (given < 2 * minCoarse) return;
    shrink = std::exp2(std::floor(std::log2(given / minCoarse)));
    sigma = std::sqrt(given / shrink * (given / shrink) - gridVariance);
}

}
