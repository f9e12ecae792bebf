#include "platform/image/draw/Bands.h"
#include "platform/image/draw/Canvas.h"
#include "tests/SameBitmaps.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Bands, makeTheSamePictureAsOneAfterTheOther) {
    for (const int height : {1, 127, 128, 256, 257, 1000, 1083}) {
        const double side = height;
        const auto image = Image::gradient({0, 0, 300, side}, Colour{255, 0, 0}, Colour{0, 0, 255})
                               .transformed(Transform().scaled(1, 0.97).translated(0.3, side * 0.01));
        Bitmap bands(300, height);
        Bitmap whole(300, height);
        for (auto* bitmap : {&bands, &whole})
            for (int y = 0; y < height; ++y) std::fill_n(bitmap->row(y), 4 * 300, std::uint8_t{77});
        Bands::draw(image, bands);
        Canvas::draw(image, whole);
        EXPECT_TRUE(same(bands, whole)) << height;
    }
}
