#include "tests/image/Pictures.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr Colour ink{40, 120, 240, 255};

/// Pixels that are covered, in parts.
double area(const Bitmap& bitmap) {
    double sum = 0;
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) sum += at(bitmap, x, y).alpha / 255.0;
    }
    return sum;
}

Transform centred(const Transform& way) {
    return Transform().translated(-50, -30).then(way).translated(150, 150);
}

}

TEST(Shapes, coverTheirAreaUnderAnyTransform) {
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
            EXPECT_NEAR(area(filled), whole * scale, whole * scale * 0.004 + 0.3) << name << radius;
            const double along = 2 * (100 + 60 - 4 * held) + 2 * pi * held;
            const Bitmap line =
                drawn(Image::roundedOutline(rect, radius, 3, ink).transformed(centred(way)), 300, 300);
            EXPECT_NEAR(area(line), along * 3 * scale, along * 3 * scale * 0.02 + 0.1) << name << radius;
        }
    }
}

TEST(Shapes, areTheSameWhereTheyHideAndWhereTheyMix) {
    const Image shape = Image::roundedRectangle({10.25, 8, 180, 90.5}, 25, ink);
    const Image white = Image::colour(Colour::white);
    const Bitmap alone = drawn(shape, 200, 110);
    const Bitmap over = drawn(shape.over(white), 200, 110);
    int partly = 0;
    for (int y = 0; y < 110; ++y) {
        for (int x = 0; x < 200; ++x) {
            const Pixel found = at(alone, x, y);
            partly += found.alpha > 0 && found.alpha < 255;
            EXPECT_EQ(at(over, x, y).red, found.red + 255 - found.alpha);
        }
    }
    EXPECT_GT(partly, 150) << "edges are smooth";
    // Its body hides what lies below, and no more than that.
    EXPECT_EQ(&shape.over(Image::colour(Colour::black).cropped({20, 40, 50, 30})).node(), &shape.node());
    EXPECT_NE(&shape.over(Image::colour(Colour::black).cropped({11, 9, 50, 30})).node(), &shape.node());
}

TEST(Gradients, goEvenlyFromColourToColour) {
    const Bitmap found = drawn(Image::gradient({2, 10, 6, 100}, {0, 0, 0, 255}, {200, 50, 0, 255}), 10, 120);
    EXPECT_EQ(at(found, 5, 9).alpha, 0);
    EXPECT_EQ(at(found, 1, 50).alpha, 0);
    for (int row = 0; row < 100; ++row)
        EXPECT_EQ(at(found, 4, 10 + row),
                  (Pixel{int(std::lround((row + 0.5) * 2)), int(std::lround((row + 0.5) / 2)), 0, 255}));
    // A clear end has no say in the hue.
    const Pixel half = at(drawn(Image::gradient({0, 0, 4, 2}, {255, 0, 0, 255}, {0, 0, 0, 0}), 4, 2), 1, 1);
    EXPECT_EQ(half, (Pixel{64, 0, 0, 64}));
    const auto turned = Transform().rotated(90).translated(120, 0);
    const Bitmap side = drawn(
        Image::gradient({2, 10, 6, 100}, {0, 0, 0, 255}, {200, 50, 0, 255}).transformed(turned), 120, 10);
    for (int row = 0; row < 100; ++row)
        EXPECT_LE(difference(at(side, 120 - 11 - row, 4), at(found, 4, 10 + row)), 1);
}

TEST(Shapes, ofNoMeasureAreNothing) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double wrong : {none, 1e308, -1e308, HUGE_VAL}) {
        for (int which = 0; which < 5; ++which) {
            double values[] = {1, 2, 30, 20, 5};
            values[which] = wrong;
            const Rect rect{values[0], values[1], values[2], values[3]};
            const bool place = which < 4;
            EXPECT_TRUE(Image::roundedRectangle(rect, values[4], ink).empty()) << which << ' ' << wrong;
            EXPECT_TRUE(Image::roundedOutline(rect, 3, values[4], ink).empty()) << which << ' ' << wrong;
            EXPECT_TRUE(!place || Image::gradient(rect, ink, Colour::black).empty()) << which << ' ' << wrong;
            drawn(Image::later(rect, [] { return Image::colour(ink).drawnOnce(); }), 8, 8);
        }
    }
    const Image tiny = Image::roundedRectangle({4, 4, 1e-300, 1e-300}, 1, ink);
    EXPECT_EQ(at(drawn(tiny, 8, 8), 4, 4).alpha, 0);
    drawn(Image::gradient({0, 0, 8, 1e-8}, ink, Colour::black).transformed(Transform().rotated(3)), 8, 8);
}
