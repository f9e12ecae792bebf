#include "platform/image/draw/Canvas.h"
#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr Colour red{255, 0, 0, 255};
constexpr Colour green{0, 255, 0, 255};
constexpr Colour blue{0, 0, 255, 255};

Image box(const Rect& rect, Colour colour) {
    return Image::colour(colour).cropped(rect);
}

Colour speckled(int x, int y) {
    return {std::uint8_t(x * 37 + y * 11), std::uint8_t(x * 5 ^ y * 53), std::uint8_t(x * y * 7), 255};
}

/// The mean colour, by the definition, of what a pixel of a scaled-down speckled bitmap covers.
Pixel meanOver(const Bitmap& bitmap, double left, double top, double side) {
    double sums[4] = {};
    for (int y = int(top); y < top + side; ++y) {
        for (int x = int(left); x < left + side; ++x) {
            const double share = (std::min(left + side, x + 1.0) - std::max(left, double(x))) *
                                 (std::min(top + side, y + 1.0) - std::max(top, double(y)));
            const Pixel pixel = at(bitmap, x, y);
            const int channels[] = {pixel.red, pixel.green, pixel.blue, pixel.alpha};
            for (int channel = 0; channel < 4; ++channel) sums[channel] += share * channels[channel];
        }
    }
    const auto mean = [&](int channel) { return int(std::lround(sums[channel] / (side * side))); };
    return {mean(0), mean(1), mean(2), mean(3)};
}

}

TEST(Canvas, replacesWhatStoodThere) {
    EXPECT_EQ(at(drawn(Image(), 8, 8), 3, 3), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(at(drawn(box({2, 2, 2, 2}, red), 8, 8), 0, 0), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(at(drawn(box({2, 2, 2, 2}, red), 8, 8), 3, 3), (Pixel{255, 0, 0, 255}));
}

TEST(Canvas, laysOverInOrderAndFades) {
    const Image below = box({0, 0, 8, 8}, blue);
    const Image above = box({0, 0, 4, 8}, red);
    EXPECT_EQ(at(drawn(above.over(below), 8, 8), 2, 2), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(at(drawn(above.over(below), 8, 8), 6, 2), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(at(drawn(above.faded(0.5).over(below), 8, 8), 2, 2), (Pixel{128, 0, 127, 255}));
    // Faded as one, the lower picture does not shine through the upper.
    EXPECT_EQ(at(drawn(above.over(below).faded(0.5), 8, 8), 2, 2), (Pixel{128, 0, 0, 128}));
    EXPECT_EQ(at(drawn(Image::colour({255, 255, 255, 128}).faded(0.5), 8, 8), 2, 2), (Pixel{64, 64, 64, 64}));
}

TEST(Canvas, cutsPixelsByTheirMiddlesSoThatNeighboursMeet) {
    for (const double seam : {3.0, 3.4, 3.5, 3.6, 2.4999999999, 4.5000000001}) {
        const Image panels =
            box({0, 0, 8, seam}, red).over(box({0, seam, 8, 8 - seam}, blue)).over(box({0, 0, 8, 8}, green));
        const Bitmap bitmap = drawn(panels, 8, 8);
        for (int y = 0; y < 8; ++y) {
            const Pixel pixel = at(bitmap, 4, y);
            EXPECT_TRUE(pixel == (Pixel{255, 0, 0, 255}) || pixel == (Pixel{0, 0, 255, 255}))
                << seam << ": " << pixel;
        }
    }
}

TEST(Canvas, smoothsTheEdgesOfWhatIsTransformed) {
    const auto moved =
        drawn(box({0, 0, 3, 3}, Colour::white).transformed(Transform().translated(2.25, 1.5)), 8, 8);
    EXPECT_NEAR(at(moved, 2, 3).alpha, 191, 1);
    EXPECT_NEAR(at(moved, 5, 3).alpha, 64, 1);
    EXPECT_NEAR(at(moved, 3, 1).alpha, 128, 1);
    EXPECT_NEAR(at(moved, 2, 1).alpha, 96, 1);
    EXPECT_EQ(at(moved, 3, 3).alpha, 255);
    // All coverage together is the rectangle's area, also where it is thinner than a pixel or turned.
    for (const double degrees : {0.0, 1.0, 30.0, 45.0, 90.0, 137.0}) {
        for (const Size size : {Size{20.3, 11.7}, Size{30, 0.4}}) {
            if (size.height < 1 && degrees != 0 && degrees != 90) continue;
            const auto turned = Transform()
                                    .translated(-size.width / 2, -size.height / 2)
                                    .rotated(degrees)
                                    .translated(25.2, 24.7);
            const auto bitmap =
                drawn(box({0, 0, size.width, size.height}, Colour::white).transformed(turned), 50, 50);
            double area = 0;
            for (int y = 0; y < 50; ++y) {
                for (int x = 0; x < 50; ++x) area += at(bitmap, x, y).alpha / 255.0;
            }
            EXPECT_NEAR(area, size.width * size.height, 0.25 + 0.01 * area) << degrees;
        }
    }
}

TEST(Canvas, showsPixelsThemselvesAtWholePlaces) {
    const Bitmap bitmap = bitmapOf(30, 20, speckled);
    const Image image = Image::bitmap(bitmap);
    EXPECT_EQ(difference(drawn(image, 30, 20), bitmap), 0);
    EXPECT_EQ(at(drawn(image.transformed(Transform().translated(3, 2)), 40, 40), 10, 9), at(bitmap, 7, 7));
    const auto turned = Transform().rotated(90).translated(20, 0);
    EXPECT_EQ(at(drawn(image.transformed(turned), 20, 30), 19 - 4, 11), at(bitmap, 11, 4));
    const auto mirrored = Transform().scaled(-1, 1).translated(30, 0);
    EXPECT_EQ(at(drawn(image.transformed(mirrored), 30, 20), 29 - 7, 5), at(bitmap, 7, 5));
    EXPECT_EQ(at(drawn(image.transformed(Transform().scaled(3, 3)), 90, 60), 3 * 8 + 1, 3 * 6 + 1),
              at(bitmap, 8, 6));
}

TEST(Canvas, repeatsEdgesWherePicturesAreClamped) {
    const Bitmap bitmap = bitmapOf(12, 10, speckled);
    const Image image = Image::bitmap(bitmap);
    const auto away = Transform().translated(20, 20);
    const auto whole = drawn(image.clamped().transformed(away), 50, 50);
    EXPECT_EQ(at(whole, 2, 3), at(bitmap, 0, 0));
    EXPECT_EQ(at(whole, 45, 24), at(bitmap, 11, 4));
    EXPECT_EQ(at(drawn(image.cropped({4, 3, 5, 5}).clamped().transformed(away), 50, 50), 2, 2),
              at(bitmap, 4, 3));
    // What is composed of several is repeated as a whole.
    const Image composed = image.over(box({0, 0, 24, 10}, red)).clamped().transformed(away);
    EXPECT_EQ(at(drawn(composed, 50, 50), 49, 25), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(at(drawn(composed, 50, 50), 3, 25), at(bitmap, 0, 5));
    // Scaled without a clamp, what lies beyond a crop does not leak in.
    const auto scaled = image.cropped({4, 3, 5, 5}).transformed(Transform().translated(-4, -3).scaled(8, 8));
    EXPECT_EQ(at(drawn(scaled, 50, 50), 0, 0), at(bitmap, 4, 3));
    EXPECT_EQ(at(drawn(scaled, 50, 50), 39, 39), at(bitmap, 8, 7));
    EXPECT_EQ(at(drawn(scaled, 50, 50), 40, 39).alpha, 0);
}

TEST(Canvas, averagesWhatAPixelCoversWhenScalingDown) {
    const Bitmap bitmap = bitmapOf(120, 120, speckled);
    for (const double side : {1.0, 1.25, 1.6, 2.0}) {
        const auto small =
            drawn(Image::bitmap(bitmap).transformed(Transform().scaled(1 / side, 1 / side)), 60, 60);
        for (int place = 0; place < 60; ++place) {
            const auto mean = meanOver(bitmap, place * side, (59 - place) * side, side);
            EXPECT_LE(difference(at(small, place, 59 - place), mean), 1) << side;
        }
    }
}

TEST(Canvas, leavesNoMoireOfWhatIsTooFineToShow) {
    Frame form;
    form.width = form.height = 2048;
    form.layout = Frame::Layout::grey;
    form.fullRange = true;
    const auto rings = [](int, double x, double y) {
        return 0.5 + 0.5 * std::cos((x * x + y * y) * 1024 * 3.14159265);
    };
    const Image image = Image::frame(frameOf(form, rings));
    for (const double degrees : {0.0, 20.0, 90.0}) {
        const auto small = drawn(image.transformed(Transform()
                                                       .translated(-1024, -1024)
                                                       .rotated(degrees)
                                                       .scaled(0.25, 0.25)
                                                       .translated(256, 256)),
                                 512, 512);
        keep(small, "rings-" + std::to_string(int(degrees)));
        // Rings finer than the new pixels lie beyond 3/8 of the way; there only grey may be left.
        const auto back = Transform().translated(-256, -256).rotated(-degrees).translated(256, 256);
        int most = 0;
        for (int y = 0; y < 512; ++y) {
            for (int x = 0; x < 512; ++x) {
                const Point place = back.apply(Point{x + 0.5, y + 0.5});
                const bool within = place.x < 508 && place.y < 508 && place.x > 4 && place.y > 4;
                if (within && std::hypot(place.x, place.y) > 330)
                    most = std::max(most, std::abs(Pictures::at(small, x, y).red - 128));
            }
        }
        EXPECT_LE(most, 16) << degrees;
    }
}

TEST(Canvas, turnsPicturesAsTheyWouldLookFromAfar) {
    const auto smooth = [](int x, int y) {
        return Colour{std::uint8_t(128 + 100 * std::sin(x * 0.07)),
                      std::uint8_t(128 + 100 * std::cos(y * 0.05)), std::uint8_t(x + y), 255};
    };
    const Bitmap bitmap = bitmapOf(120, 100, smooth);
    const std::pair<const char*, Transform> cases[] = {
        {"turned", Transform().rotated(25).translated(50, 10)},
        {"enlarged", Transform().translated(-40, -40).rotated(-130).scaled(2.5, 2.5).translated(60, 60)},
        {"small", Transform().rotated(10).scaled(0.3, 0.3).translated(40, 40)},
        {"sheared", Transform{1, 0.2, 0.9, 1.1, 0, 0}},
        {"squeezed", Transform().rotated(40).scaled(0.25, 1).translated(40, 20)}};
    for (const auto& [name, transform] : cases) {
        const auto bitmapThere = drawn(Image::bitmap(bitmap).transformed(transform), 140, 140);
        int compared = 0;
        for (int y = 0; y < 140; ++y) {
            for (int x = 0; x < 140; ++x) {
                const Point from = transform.inverse().apply(Point{x + 0.5, y + 0.5});
                const double near =
                    3 *
                    std::max(1 / std::sqrt(std::abs(transform.a * transform.d - transform.b * transform.c)),
                             1.0);
                if (from.x < near || from.y < near || from.x > 120 - near || from.y > 100 - near) continue;
                const auto [red, green, blue, alpha] = smooth(int(from.x), int(from.y));
                EXPECT_LE(difference(at(bitmapThere, x, y), {red, green, blue, alpha}), 14)
                    << name << " " << x << " " << y;
                ++compared;
            }
        }
        EXPECT_GT(compared, 300) << name;
    }
}

TEST(Canvas, encodesPlanesFromTheSamePixels) {
    const Image image = Image::bitmap(bitmapOf(64, 130, [](int x, int y) {
        return Colour{std::uint8_t(x * 4), std::uint8_t(y), std::uint8_t(255 - x * 2),
                      std::uint8_t(y < 100 ? 255 : 100)};
    }));
    Planes planes(64, 130);
    Canvas::draw(image, planes);
    const Bitmap bitmap = drawn(image, 64, 130);
    for (int y = 0; y < 130; y += 3) {
        for (int x = 2; x < 64; x += 2) {
            const auto luma = [&](int column, int row) {
                const Pixel pixel = at(bitmap, column, row);
                return 0.2126 * pixel.red + 0.7152 * pixel.green + 0.0722 * pixel.blue;
            };
            EXPECT_NEAR(planes.plane(0)[y * planes.stride(0) + x], 16 + luma(x, y) * 219 / 255, 0.6);
            double blue = 0;
            for (const int row : {y & ~1, y | 1}) {
                for (const int column : {x - 1, x, x, x + 1})
                    blue += (at(bitmap, column, row).blue - luma(column, row)) / 1.8556 / 8;
            }
            EXPECT_NEAR(planes.plane(1)[y / 2 * planes.stride(1) + x / 2], 128 + blue * 224 / 255, 0.6);
        }
    }
    const auto code = [](const Image& plain) {
        Planes one(2, 2);
        Canvas::draw(plain, one);
        return std::array{int(one.plane(0)[0]), int(one.plane(1)[0]), int(one.plane(2)[0])};
    };
    EXPECT_EQ(code(Image()), (std::array{16, 128, 128}));
    EXPECT_EQ(code(Image::colour(Colour::white)), (std::array{235, 128, 128}));
    EXPECT_EQ(code(Image::colour(red)), (std::array{63, 102, 240}));
}

TEST(Canvas, survivesEveryTransform) {
    const Image image = Image::bitmap(bitmapOf(9, 7, speckled));
    const double values[] = {0, 1e-3, 1, 1e3, -1e9, 1e300};
    for (const double scale : values) {
        for (const double shear : values) {
            for (const double shift : values) {
                const Transform transform{scale, shear, 0.3, 1, shift, -shift};
                drawn(image.transformed(transform), 16, 16);
                drawn(image.clamped().transformed(transform).over(image), 16, 16);
                drawn(image.over(box({0, 0, 20, 20}, red)).clamped().transformed(transform).faded(0.4), 16,
                      16);
                drawn(image.clamped().motionBlurred(9, 30).transformed(transform), 16, 16);
                drawn(image.zoomBlurred({4, 4}, 5).transformed(transform), 16, 16);
            }
        }
    }
}

TEST(Canvas, leavesOutAPictureWithAlphaThatIsTooLargeToHold) {
    const int wide = 40'000;
    auto pixels = std::make_shared<std::vector<std::uint8_t>>(std::size_t{4} * wide, 255);
    Frame frame{.width = wide, .height = 1, .layout = Frame::Layout::bgra, .hasAlpha = true};
    frame.planes[0] = pixels->data();
    frame.strides[0] = std::ptrdiff_t{4} * wide;
    frame.keeper = pixels;
    Bitmap target(16, 16);
    Canvas::draw(Image::frame(frame).over(Image::colour(Colour::white)), target);
    EXPECT_EQ(target.row(8)[0], 255);
}
