#include "platform/image/filters/Blur.h"
#include "platform/image/filters/CoarseSigma.h"
#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

/// How wide the light of a line lies after a blur, as a deviation.
double spreadOf(double sigma) {
    constexpr int side = 400;
    const Image line = Image::colour(Colour::white).cropped({196, 0, 8, 40});
    const auto blurred = drawn(line.over(Image::colour(Colour::black))
                                   .cropped({0, 0, side, 40})
                                   .clamped()
                                   .filtered(Filters::Blur{sigma}),
                               side, 40);
    double sum = 0, variance = 0;
    for (int x = 0; x < side; ++x) {
        const double away = x + 0.5 - 200;
        sum += at(blurred, x, 20).green;
        variance += at(blurred, x, 20).green * away * away;
    }
    return std::sqrt(variance / sum - 64 / 12.0); // without the line's own
}

}

TEST(CoarseSigma, blursOnACoarseGridAsOnAFineOne) {
    // Just below the deviation from which the grid is coarser, and just above: what averaging onto the grid
    // and sampling from it blur by themselves is made up for.
    for (const double sigma : {5.9, 6.1, 11.9, 12.1})
        EXPECT_NEAR(spreadOf(sigma), sigma, sigma * 0.025) << sigma;
}
