#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

TEST(Flattening, blendsAndMasksNestWithoutEnd) {
    const Rect all{0, 0, 8, 8};
    const Image base = box(all, {200, 100, 50, 255});
    Image below = base;
    Image above = base;
    Image masked = base;
    Image mask = base;
    Image later = base;
    Image once = base;
    for (int round = 0; round < 10000; ++round) {
        const Blend blend = blends[round % 6];
        below = box(all, {std::uint8_t(round), 90, 200, 40}).over(below, blend);
        above = above.over(box(all, {9, 90, 200, 255}), blend).faded(0.99);
        masked = masked.masked(box({0, 0, 8, 7.5}, Colour::white));
        mask = base.masked(mask.faded(0.999));
        later = Image::later(all, [later] { return later; });
        once = once.faded(0.999).drawnOnce();
    }
    for (const Image& image : {below, above, mask, once}) drawn(image, 8, 8);
    EXPECT_EQ(at(drawn(masked, 8, 8), 3, 3), (Pixel{200, 100, 50, 255}));
    EXPECT_EQ(at(drawn(later, 8, 8), 3, 3).alpha, 0) << "too deep to be made";
}
