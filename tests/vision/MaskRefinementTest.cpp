#include "platform/vision/MaskRefinement.h"
#include "tests/vision/GreyPicture.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

TEST(MaskRefinement, edgesAreThoseOfThePicture) {
    // What the network says rises over twenty pixels of the picture.
    std::vector<float> likely;
    for (int i = 0; i < 256 * 256; ++i)
        likely.push_back(std::clamp(float(i % 256 - 128) / 16 + 0.5f, 0.f, 1.f));
    const auto step = [&](int brighter) {
        const auto shade = [&](int edge) {
            return [=](int x, int) { return x < edge ? 40 : 40 + brighter; };
        };
        const Bitmap mask = MaskRefinement::refined(greyPicture(400, 300, shade(200)),
                                                    greyPicture(256, 256, shade(128)), likely);
        for (const int y : {0, 150, 299}) {
            EXPECT_EQ(mask.row(y)[4 * 180 + 3], 0);
            EXPECT_EQ(mask.row(y)[4 * 220], 255) << "white at its alpha";
        }
        return mask.row(150)[4 * 202 + 3] - mask.row(150)[4 * 197 + 3];
    };
    EXPECT_LT(step(0), 128); // a fifth of the rise, which the curve makes at most 2.5 times as steep
    EXPECT_GT(step(60), 200);
    EXPECT_GT(step(215), 200);
}
