#include "platform/image/filters/Blur.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(Blur, isAGaussian) {
    const Image step = box({96, 0, 96, side}, Colour::white);
    for (const double sigma : {1.5, 4.0, 7.0, 18.0}) {
        const auto blurred = filtered(step, Filters::Blur{sigma});
        for (int x = 60; x < 132; ++x) {
            const double truth = 127.5 * (1 + std::erf((x + 0.5 - 96) / (sigma * std::sqrt(2.0))));
            EXPECT_NEAR(at(blurred, x, 50).green, truth, 3) << sigma << " at " << x;
        }
    }
}

TEST(Blur, meetsTheEdges) {
    const Image flat = Image::colour({90, 120, 200, 255}).cropped(whole);
    const Pixel colour{90, 120, 200, 255};
    for (const double sigma : {1.0, 5.0, 18.0, 300.0}) {
        EXPECT_LE(difference(at(filtered(flat, Filters::Blur{sigma}), 0, 90), colour), 1) << sigma;
        const Image bare = flat.filtered(Filters::Blur{sigma});
        EXPECT_NEAR(bare.extent().x, -3 * sigma, 0.001);
        if (sigma < side / 8.0) {
            EXPECT_NEAR(at(drawn(bare, side, side), 0, 90).alpha,
                        127.5 * (1 + std::erf(0.5 / sigma / std::sqrt(2.0))), 3)
                << sigma;
            EXPECT_EQ(at(drawn(bare, side, side), 96, 96), colour) << sigma;
        }
    }
}
