#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

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

TEST(AxisSamplers, averagesWhatAPixelCoversWhenScalingDown) {
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

TEST(AxisSamplers, leavesNoMoireOfWhatIsTooFineToShow) {
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
        // Rings finer than the new pixels lie beyond 3/8 of the way; there only grey may be left.
        const auto back = Transform().translated(-256, -256).rotated(-degrees).translated(256, 256);
        int max = 0;
        everywhere(512, 512, [&](int x, int y) {
            const Point place = back.apply(Point{x + 0.5, y + 0.5});
            const bool within = place.x < 508 && place.y < 508 && place.x > 4 && place.y > 4;
            if (within && std::hypot(place.x, place.y) > 330)
                max = std::max(max, std::abs(Pictures::at(small, x, y).red - 128));
        });
        EXPECT_LE(max, 16) << degrees;
    }
}
