#include "platform/text/Distance.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Distance, growsToTheExactRadius) {
    constexpr int side = 61;
    std::vector<std::uint8_t> mask(side * side, 0);
    // In rows near the first, it hides all three of the low row at once.
    constexpr std::pair<int, int> points[] = {{30, 30}, {18, 40}, {27, 42}, {28, 42}, {29, 42}};
    for (const auto& [x, y] : points) mask[std::size_t(y * side + x)] = 255;
    mask[std::size_t(5 * side + 5)] = 15; // hardly there
    const auto grown = Distance::grown(mask, side, side, 10);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            double near = side;
            for (const auto& point : points)
                near = std::min(near, std::hypot(x - point.first, y - point.second));
            EXPECT_NEAR(grown[std::size_t(y * side + x)], 255 * std::clamp(11 - near, 0.0, 1.0), 1)
                << x << " " << y;
        }
}

TEST(Distance, aPixelCoveredInPartLiesAsMuchFurtherOff) {
    constexpr int wide = 30, high = 20;
    for (const int level : {16, 100, 254}) {
        std::vector<std::uint8_t> mask(wide * high, 0);
        mask[std::size_t(4 * wide + 25)] = std::uint8_t(level);
        const auto grown = Distance::grown(mask, wide, high, 6.5);
        const double outside = 1 - level / 255.0;
        for (const auto& [x, y] : {std::pair{25, 4}, {18, 4}, {25, 11}, {20, 8}, {19, 9}}) {
            const double far = std::sqrt((x - 25) * (x - 25) + (y - 4) * (y - 4) + outside * outside);
            EXPECT_NEAR(grown[std::size_t(y * wide + x)], 255 * std::clamp(7.5 - far, 0.0, 1.0), 1)
                << level << " at " << x;
        }
    }
}
