#include "platform/image/filters/Blur.h"
#include "platform/image/filters/CoarseSigma.h"
#include "platform/image/filters/Gauss.h"
#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Gauss, weighsAsItsDeviationSays) {
    for (const double sigma : {0.3, 1.0, 3.7, 12.0}) {
        const Gauss gauss(sigma);
        double sum = 0, variance = 0;
        for (std::size_t at = 1; at < gauss.weights.size(); ++at) {
            const double away = double((at + 1) / 2); // one to either side in turn
            sum += gauss.weights[at];
            variance += gauss.weights[at] * away * away / 32768.0;
        }
        EXPECT_LE(sum, 32768) << "what is left is the middle's";
        if (sigma >= 1) {
            EXPECT_NEAR(std::sqrt(variance), sigma, sigma * 0.03);
        }
    }
}
