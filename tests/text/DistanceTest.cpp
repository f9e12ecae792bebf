#include "platform/text/Distance.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Distance, growsToTheExactRadius) {
    constexpr int side = 61;
    std::vector<std::uint8_t> mask(side * side, 0);
    for (const auto& [x, y] : {std::pair{30, 30}, {18, 40}}) mask[std::size_t(y * side + x)] = 255;
    const auto grown = Distance::grown(mask, side, side, 10);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const double near = std::min(std::hypot(x - 30, y - 30), std::hypot(x - 18, y - 40));
            EXPECT_NEAR(grown[std::size_t(y * side + x)], 255 * std::clamp(11 - near, 0.0, 1.0), 1)
                << x << " " << y;
        }
}
