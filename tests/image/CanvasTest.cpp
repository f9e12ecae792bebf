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
