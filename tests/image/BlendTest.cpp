#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

/// W3C Compositing and Blending Level 1, 10.1, on straight colours from 0 to 1.
double blended(Blend blend, double below, double above) {
    const double dark = 2 * above - 1;
    const double lit = below <= 0.25 ? ((16 * below - 12) * below + 4) * below : std::sqrt(below);
    switch (blend) {
        case Blend::multiply:
            return below * above;
        case Blend::screen:
            return below + above - below * above;
        case Blend::overlay:
            return below <= 0.5 ? 2 * below * above : 1 - 2 * (1 - below) * (1 - above);
        case Blend::softLight:
            return above <= 0.5 ? below + dark * below * (1 - below) : below + dark * (lit - below);
        default:
            return above;
    }
}

int mixed(Blend blend, int below, int belowAlpha, int above, int aboveAlpha) {
    const double ab = belowAlpha / 255.0;
    const double as = aboveAlpha / 255.0;
    if (blend == Blend::add) return int(std::lround(std::min(below * ab + above * as, 255.0)));
    const double mix = blended(blend, below / 255.0, above / 255.0);
    return int(std::lround((1 - ab) * as * above + (1 - as) * ab * below + as * ab * mix * 255));
}

/// A row in which the colours of one picture meet those of the other.
Image shades(bool across, int alpha) {
    return Image::bitmap(bitmapOf(64, 64, [=](int x, int y) {
        const auto level = std::uint8_t((across ? x : y) * 4);
        return Colour{level, std::uint8_t(255 - level), 128, std::uint8_t(alpha)};
    }));
}

}

TEST(Blends, areThoseOfTheStandard) {
    for (const Blend blend : blends) {
        for (const auto& [belowAlpha, aboveAlpha] : {std::pair{255, 255}, {255, 120}, {90, 255}, {140, 60}}) {
            const Bitmap found =
                drawn(shades(true, aboveAlpha).over(shades(false, belowAlpha), blend), 64, 64);
            int worst = 0;
            everywhere(64, 64, [&, below = belowAlpha, above = aboveAlpha](int x, int y) {
                const int red = mixed(blend, y * 4, below, x * 4, above);
                worst = std::max(worst, std::abs(at(found, x, y).red - red));
            });
            // Two more roundings than the formula has: each picture's premultiplied colours.
            EXPECT_LE(worst, belowAlpha == 255 && aboveAlpha == 255 ? 1 : 2) << int(blend);
        }
    }
}

TEST(Blends, mixWithWhatTheirGroupHasOnly) {
    const Rect left{0, 0, 4, 4};
    const Rect all{0, 0, 8, 4};
    const Image white = box(all, Colour::white);
    const Image red = box(all, {255, 0, 0, 255});
    const Image blue = box(left, {0, 0, 255, 255});
    // Red multiplied with blue is black; where the group is clear, red stays as it is.
    const Image group = red.over(blue, Blend::multiply);
    for (const auto& [name, image] :
         {std::pair{"above", group.over(white)},
          {"cut", group.cropped({0, 0, 8, 3.5}).over(white)},
          {"masked", group.masked(white).over(white)},
          {"within another", group.over(Image()).over(box(left, {0, 255, 0, 255})).over(white)}}) {
        EXPECT_EQ(at(drawn(image, 8, 4), 1, 1), (Pixel{0, 0, 0, 255})) << name;
        EXPECT_EQ(at(drawn(image, 8, 4), 6, 1), (Pixel{255, 0, 0, 255})) << name;
    }
    EXPECT_EQ(at(drawn(group.over(box(all, {0, 255, 0, 255})), 8, 4), 6, 1), (Pixel{255, 0, 0, 255}));
    const Bitmap faded = drawn(group.faded(0.5).over(white), 8, 4);
    EXPECT_EQ(at(faded, 1, 1), (Pixel{127, 127, 127, 255}));
    EXPECT_EQ(at(faded, 6, 1), (Pixel{255, 127, 127, 255}));
    // One that lies in the same stack mixes with all that is below.
    EXPECT_EQ(at(drawn(red.over(blue.over(box(all, {0, 255, 0, 255})), Blend::multiply), 8, 4), 6, 1),
              (Pixel{0, 0, 0, 255}));
    // Several pictures are blended as the one that they make.
    const Image pair = box(left, {0, 255, 0, 255}).over(red);
    EXPECT_EQ(at(drawn(pair.over(box(all, {255, 255, 0, 255}), Blend::multiply), 8, 4), 1, 1),
              (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(at(drawn(pair.faded(0.5).over(white, Blend::multiply), 8, 4), 6, 1),
              (Pixel{255, 127, 127, 255}));
}

TEST(Masks, fadeByTheirAlphaAtItsPlace) {
    const Image picture = shades(true, 255);
    const Image mask = Image::bitmap(bitmapOf(64, 64, [](int x, int y) {
        return Colour{9, 9, 9, std::uint8_t(x < 20 ? 255 : y * 4)};
    }));
    const Bitmap found = drawn(picture.masked(mask.transformed(Transform().translated(5, 0))), 70, 64);
    const Bitmap plain = drawn(picture, 70, 64);
    EXPECT_EQ(at(found, 4, 9).alpha, 0) << "beside the mask";
    EXPECT_EQ(at(found, 10, 9), at(plain, 10, 9));
    EXPECT_EQ(at(found, 40, 32).red, (at(plain, 40, 32).red * 128 + 127) / 255);
    EXPECT_EQ(difference(drawn(picture.masked(mask).faded(0.5), 64, 64),
                         drawn(picture.faded(0.5).masked(mask), 64, 64)),
              0);
    const Rect body{0, 0, 64, 64};
    EXPECT_EQ(picture.masked(box({-1, -1, 99, 99}, Colour::white)).node(), picture.node());
    EXPECT_TRUE(picture.masked(Image()).empty());
    const Image soft = box(body, Colour::white).faded(0.5);
    EXPECT_EQ(
        at(drawn(box(body, Colour::black).masked(soft).over(box(body, Colour::white)), 64, 64), 9, 9).red,
        127)
        << "what lies below shows through a soft mask";
    EXPECT_EQ(picture.masked(box({60, 0, 99, 9}, Colour::white)).extent(), body.intersection({60, 0, 4, 9}));
}
