#include "tests/image/Pictures.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr Colour ink{40, 120, 240, 255};

Transform centred(const Transform& way) {
    return Transform().translated(-50, -30).then(way).translated(150, 150);
}

}

TEST(RoundedRectangles, coverTheirAreaUnderAnyTransform) {
    const Rect rect{0, 0, 100, 60};
    const std::pair<const char*, Transform> ways[] = {
        {"upright", Transform()},
        {"between pixels", Transform().translated(0.3, 0.6)},
        {"turned", Transform().rotated(27)},
        {"larger, turned", Transform().scaled(2.3, 2.3).rotated(-70)},
        {"tiny", Transform().scaled(0.05, 0.05).rotated(10)},
        {"squeezed, turned", Transform().scaled(1.6, 0.5).rotated(45)},
        {"mirrored", Transform().scaled(-1, 1)}};
    for (const auto& [name, way] : ways) {
        const double scale = std::abs(way.a * way.d - way.b * way.c);
        for (const double radius : {4.0, 18.0, 30.0, 99.0}) {
            const double held = std::min(radius, 30.0);
            const double whole = 100 * 60 - (4 - pi) * held * held;
            const Bitmap filled =
                drawn(Image::roundedRectangle(rect, radius, ink).transformed(centred(way)), 300, 300);
            EXPECT_NEAR(coverage(filled), whole * scale, whole * scale * 0.004 + 0.3) << name << radius;
            const double along = 2 * (100 + 60 - 4 * held) + 2 * pi * held;
            const Bitmap line =
                drawn(Image::roundedOutline(rect, radius, 3, ink).transformed(centred(way)), 300, 300);
            EXPECT_NEAR(coverage(line), along * 3 * scale, along * 3 * scale * 0.02 + 0.1) << name << radius;
        }
    }
}

TEST(RoundedRectangles, thinnerThanAPixelAreAsFaintAsTheyAreThin) {
    for (const double thin : {0.2, 0.5, 0.9})
        for (const auto& rect : {Rect{10, 10.3, 100, thin}, Rect{10.3, 10, thin, 100}})
            EXPECT_NEAR(coverage(drawn(Image::roundedRectangle(rect, thin / 2, ink), 130, 130)), 100 * thin,
                        4)
                << thin;
}

TEST(RoundedRectangles, areTheSameWhereTheyHideAndWhereTheyMix) {
    const Image shape = Image::roundedRectangle({10.25, 8, 180, 90.5}, 25, ink);
    const Image white = Image::colour(Colour::white);
    const Bitmap alone = drawn(shape, 200, 110);
    const Bitmap over = drawn(shape.over(white), 200, 110);
    int partly = 0;
    everywhere(200, 110, [&](int x, int y) {
        const Pixel found = at(alone, x, y);
        partly += found.alpha > 0 && found.alpha < 255;
        EXPECT_EQ(at(over, x, y).red, found.red + 255 - found.alpha);
    });
    EXPECT_GT(partly, 150) << "edges are smooth";
    // Its body hides what lies below, and no more than that.
    EXPECT_EQ(shape.over(Image::colour(Colour::black).cropped({20, 40, 50, 30})).node(), shape.node());
    EXPECT_NE(shape.over(Image::colour(Colour::black).cropped({11, 9, 50, 30})).node(), shape.node());
}
