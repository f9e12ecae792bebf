#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vignette.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(FlatteningFilters, turnWithTheirPicture) {
    // Drawn on a grid of its own and turned by a quarter: the very pixels, elsewhere.
    for (const auto& [name, filter] : all()) {
        const auto upright = drawn(picture().filtered(filter), side, side);
        const auto turned = drawn(
            picture().filtered(filter).transformed(Transform().rotated(90).translated(side, 0)), side, side);
        int max = 0;
        everywhere(side, side, [&](int x, int y) {
            max = std::max(max, difference(at(upright, x, y), at(turned, side - 1 - y, x)));
        });
        EXPECT_LE(max, name == "vignette" ? 1 : 0) << name;
    }
}

TEST(FlatteningFilters, followUponEachOtherWithoutEnd) {
    Image image = picture();
    for (int at = 0; at < 100'000; ++at) image = image.filtered(Filters::ColourMatrix::saturated(1));
    const Image edges = image.clamped().transformed(Transform().scaled(0.1, 0.1));
    EXPECT_EQ(
        difference(drawn(edges, 4, 4), drawn(picture().transformed(Transform().scaled(0.1, 0.1)), 4, 4)), 0);
}

TEST(FlatteningFilters, ofMirroredPicturesSmoothNothing) {
    const Image image = Image::bitmap(
        bitmapOf(side, side, [](int x, int y) { return (x + y) % 2 ? Colour::white : Colour::black; }));
    const Filter vignette = Filters::Vignette{0.001, 64};
    const auto placed = Transform().scaled(0.75, 0.75).translated(9.3, 7.1);
    for (const auto& turn : {Transform().scaled(-1, 1), Transform().rotated(90), Transform().rotated(180)}) {
        const auto way = placed.then(turn).translated(200, 200);
        EXPECT_LE(difference(drawn(image.filtered(vignette).transformed(way), 400, 400),
                             drawn(image.transformed(way), 400, 400)),
                  1);
    }
}
