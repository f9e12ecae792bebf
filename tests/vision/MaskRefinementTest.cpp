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
    const auto step = [&](int blue, int green, int red) {
        const auto shaded = [&](int width, int height) {
            Bitmap picture = greyPicture(width, height, [](int, int) { return 120; });
            for (int at = 0; at < width * height; ++at) {
                std::uint8_t* pixel = picture.row(at / width) + 4 * (at % width);
                if (at % width >= width / 2) pixel[0] += blue, pixel[1] += green, pixel[2] += red;
            }
            return picture;
        };
        const Bitmap mask = MaskRefinement::refined(shaded(400, 300), shaded(256, 256), likely);
        for (const int y : {0, 150, 299}) {
            EXPECT_EQ(mask.row(y)[4 * 180 + 3], 0);
            EXPECT_EQ(mask.row(y)[4 * 220], 255) << "white at its alpha";
        }
        return mask.row(150)[4 * 202 + 3] - mask.row(150)[4 * 197 + 3];
    };
    EXPECT_LT(step(0, 0, 0), 128); // a fifth of the rise, which the curve makes at most 2.5 times as steep
    for (int way = 0; way < 27; ++way) { // each colour darker, as it was or brighter
        if (way == 13) continue;
        EXPECT_GT(step(60 * (way % 3 - 1), 60 * (way / 3 % 3 - 1), 60 * (way / 9 - 1)), 200) << way;
    }
}
