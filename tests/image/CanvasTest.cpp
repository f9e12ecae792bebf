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

}

TEST(Canvas, replacesWhatStoodThere) {
    EXPECT_EQ(at(drawn(Image(), 8, 8), 3, 3), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(at(drawn(box({2, 2, 2, 2}, red), 8, 8), 0, 0), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(at(drawn(box({2, 2, 2, 2}, red), 8, 8), 3, 3), (Pixel{255, 0, 0, 255}));
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

TEST(Canvas, showsPixelsThemselvesAtWholePlaces) {
    const Bitmap bitmap = bitmapOf(30, 20, speckled);
    const Image image = Image::bitmap(bitmap);
    EXPECT_EQ(difference(drawn(image, 30, 20), bitmap), 0);
    EXPECT_EQ(at(drawn(image.transformed(Transform().translated(3, 2)), 40, 40), 10, 9), at(bitmap, 7, 7));
    const auto turned = Transform().rotated(90).translated(20, 0);
    EXPECT_EQ(at(drawn(image.transformed(turned), 20, 30), 19 - 4, 11), at(bitmap, 11, 4));
    const auto leftward = Transform().rotated(-90).translated(0, 30);
    EXPECT_EQ(at(drawn(image.transformed(leftward), 20, 30), 4, 29 - 11), at(bitmap, 11, 4));
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

TEST(Canvas, cutsWhatIsMovedOnWhereItWasCut) {
    const Image large = Image::bitmap(bitmapOf(80, 60, wavy)).transformed(Transform().scaled(1.5, 1.5));
    const auto way = Transform().scaled(0.5, 2).translated(7, 3);
    const Bitmap whole = drawn(large.transformed(way), 80, 200);
    const Bitmap part = drawn(large.cropped({30, 20, 60, 45}).transformed(way), 80, 200);
    everywhere(80, 200, [&](int x, int y) {
        const bool in = x >= 22 && x < 52 && y >= 43 && y < 133;
        EXPECT_LE(difference(at(part, x, y), in ? at(whole, x, y) : Pixel{}), 3) << x << ", " << y;
    });
}
