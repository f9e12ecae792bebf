#include "tests/image/Pictures.h"
#include "tests/image/Rows.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr int side = 160;

/// The mean colour along `steps` points that `place` gives, -1 to 1.
template <typename Place>
Pixel meanAlong(const Place& place) {
    constexpr int steps = 400;
    double sums[3] = {};
    for (int step = 0; step < steps; ++step) {
        const Point point = place(2 * (step + 0.5) / steps - 1);
        const auto colour = wavy(std::clamp(int(std::floor(point.x)), 0, side - 1),
                                 std::clamp(int(std::floor(point.y)), 0, side - 1));
        sums[0] += colour.red, sums[1] += colour.green, sums[2] += colour.blue;
    }
    return {int(sums[0] / steps + 0.5), int(sums[1] / steps + 0.5), int(sums[2] / steps + 0.5), 255};
}

/// Holds some places of a smeared picture against the mean along the points that `place` gives for each.
template <typename Place>
void expectMeans(const Image& smeared, int max, const std::string& what, const Place& place) {
    const Bitmap found = drawn(smeared, side, side);
    for (int x = 8; x < side; x += 12)
        for (int y = 8; y < side; y += 12)
            EXPECT_LE(difference(at(found, x, y), meanAlong([&](double step) {
                                     return place(Point{x + 0.5, y + 0.5}, step);
                                 })),
                      max)
                << what << " at " << x << ", " << y;
}

}

TEST(DirectionalBlur, motionIsTheMeanAlongItsLine) {
    const Image image = Image::bitmap(bitmapOf(side, side, wavy)).clamped();
    struct Case {
        double radius, degrees;
        int max; ///< difference of a channel
    };
    // Long slanted smears are drawn at half size, which rounds fine detail across them off.
    const Case cases[] = {{3, 0, 10},   {12.5, 0, 10},  {50, 0, 10}, {20, 90, 10},
                          {20, 35, 10}, {30, -120, 10}, {50, 10, 15}};
    for (const auto& [radius, degrees, max] : cases) {
        const double x = std::cos(degrees * 3.14159265 / 180) * radius;
        const double y = std::sin(degrees * 3.14159265 / 180) * radius;
        expectMeans(image.motionBlurred(radius, degrees), max, std::to_string(degrees) + " degrees",
                    [=](const Point& at, double step) {
                        return Point{at.x + step * x, at.y + step * y};
                    });
    }
}

TEST(DirectionalBlur, zoomIsTheMeanAlongTheWayFromItsCentre) {
    const Image image = Image::bitmap(bitmapOf(side, side, wavy)).clamped();
    const Point centre{60, 90};
    for (const double amount : {4.0, 16.0, 40.0}) {
        expectMeans(
            image.zoomBlurred(centre, amount), 14, std::to_string(amount), [=](const Point& at, double step) {
                const double scale = 1 + step * amount / side;
                return Point{centre.x + (at.x - centre.x) * scale, centre.y + (at.y - centre.y) * scale};
            });
    }
}

TEST(DirectionalBlur, keepFlatColoursAndFadeAtBareEdges) {
    const Image flat = Image::colour({90, 120, 200, 255}).cropped({0, 0, side, side});
    const Pixel colour{90, 120, 200, 255};
    EXPECT_LE(difference(at(drawn(flat.clamped().motionBlurred(60, 0), side, side), 3, 80), colour), 1);
    EXPECT_LE(difference(at(drawn(flat.clamped().motionBlurred(60, 77), side, side), 3, 80), colour), 1);
    EXPECT_LE(difference(at(drawn(flat.clamped().zoomBlurred({80, 80}, 60), side, side), 3, 80), colour), 1);
    const auto bare = drawn(flat.motionBlurred(40, 0), side, side);
    EXPECT_NEAR(at(bare, 0, 80).alpha, 128, 4);
    EXPECT_EQ(at(bare, 80, 80).alpha, 255);
}

TEST(DirectionalBlur, scaleWithThePicture) {
    const Image image = Image::bitmap(bitmapOf(side, side, wavy)).clamped();
    const auto half = Transform().scaled(0.5, 0.5);
    for (const Image& smeared : {image.motionBlurred(24, 20), image.zoomBlurred({80, 80}, 30)}) {
        const auto small = drawn(smeared.transformed(half), side / 2, side / 2);
        const auto large = Canvas::bitmap(Image::bitmap(drawn(smeared, side, side)).transformed(half),
                                          {0, 0, side / 2, side / 2});
        EXPECT_LE(difference(small, large), 12);
    }
}

TEST(DirectionalBlur, rowsSmearByTheMeanOfTheirReach) {
    for (const int width : Rows::widths) {
        const auto row = Rows::pixels(width);
        for (const unsigned reach : {32, 33, 96, 500, 4096}) {
            const int whole = int(reach - 32) / 64;
            std::vector<std::uint8_t> expected(width * 4 + 4, 1);
            for (int at = 0; at < width * 4; ++at) {
                unsigned sum = 0;
                for (int step = -whole - 1; step <= whole + 1; ++step)
                    sum += (std::abs(step) <= whole ? 64 : (reach - 32) % 64) *
                           row[std::clamp(at / 4 + step, 0, width - 1) * 4 + at % 4];
                expected[at] = std::uint8_t((sum * ((1u << 24) / (2 * reach)) + (1u << 23)) >> 24);
            }
            onEachTarget([&](const char* name) {
                std::vector<std::uint8_t> found(width * 4 + 4, 1);
                Kernels::smearRow(row.data(), width, int(reach), found.data());
                EXPECT_EQ(found, expected) << width << " by " << reach << " on " << name;
            });
        }
    }
}
