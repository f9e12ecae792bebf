#include "platform/vision/BilinearResize.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(BilinearResize, laysNewPixelsBetweenTheMiddlesOfTheGiven) {
    const auto same = BilinearResize::places(3, 3, 10);
    for (std::size_t at = 0; at < 3; ++at) {
        EXPECT_EQ(same[at].before, 10 * static_cast<int>(at));
        EXPECT_EQ(same[at].part, 0);
    }
    const auto larger = BilinearResize::places(2, 4, 1);
    ASSERT_EQ(larger.size(), 4u);
    for (const auto& [at, value] : {std::pair{0, 0.0}, {1, 0.25}, {2, 0.75}, {3, 1.0}}) {
        const auto& place = larger[static_cast<std::size_t>(at)];
        EXPECT_NEAR(static_cast<double>(place.before) * (1 - place.part) +
                        static_cast<double>(place.after) * place.part,
                    value, 1e-6)
            << at;
        EXPECT_LE(place.after, 1) << "within the given";
    }
    const auto smaller = BilinearResize::places(4, 2, 1);
    EXPECT_EQ(smaller[0].before, 0);
    EXPECT_EQ(smaller[1].before, 2);
    EXPECT_EQ(smaller[1].after, 3);
    EXPECT_FLOAT_EQ(smaller[0].part, 0.5F);
}
