#include "platform/image/filters/Posterize.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(Posterize, takesTheNearestOfEvenSteps) {
    const Colour orange{240, 120, 30, 255};
    EXPECT_EQ(seen(orange, Filters::Posterize{6}), (Pixel{255, 102, 51, 255}));
    for (const int levels : {2, 3, 7, 64, 255}) {
        for (int level = 0; level < 256; ++level) {
            const double step = 255.0 / (levels - 1);
            const double nearest = std::round(level / step) * step;
            const auto found = seen({std::uint8_t(level), 0, 0, 255}, Filters::Posterize{levels}).red;
            EXPECT_NEAR(found, nearest, std::abs(level - nearest) * 2 > step - 0.6 ? step + 1 : 1)
                << levels << ' ' << level;
        }
    }
}
