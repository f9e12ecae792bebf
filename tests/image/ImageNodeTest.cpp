#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(ImageNodes, aGraphThousandsDeepNeedsNoStack) {
    const Image dot = box({0, 0, 2, 2}, {0, 255, 0, 255});
    Image chain;
    Image nested = dot;
    for (int at = 0; at < 100000; ++at) {
        chain = dot.transformed(Transform().translated(at % 64, at / 64 % 64)).over(chain);
        // A crop between two moves keeps them from joining.
        nested = nested.transformed(Transform().translated(1, 0)).cropped({0, 0, 70, 70});
        nested =
            nested.transformed(Transform().translated(-1, 0)).cropped({0, 0, 70, 70}).over(dot.faded(0.5));
    }
    EXPECT_EQ(at(drawn(chain, 64, 64), 40, 40), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(at(drawn(nested, 4, 4), 1, 1), (Pixel{0, 255, 0, 255}));
    Image groups = dot;
    for (int at = 0; at < 5000; ++at) groups = groups.over(dot.faded(0.4)).faded(0.9).motionBlurred(0.2, 3);
    drawn(groups, 4, 4);
}
