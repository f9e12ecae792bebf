#include "platform/image/filters/Blur.h"
#include "platform/image/filters/ColourCube.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Glow.h"
#include "platform/image/filters/Pixel.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vhs.h"
#include "platform/image/filters/Vignette.h"
#include "tests/image/FilterKinds.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

namespace {

/// Letters of all alphas, with clear between them.
Image sticker() {
    return Image::bitmap(bitmapOf(side, side, [](int x, int y) {
        Colour colour = wavy(x, y);
        colour.alpha = std::uint8_t(std::clamp(20 * (60 - std::abs(x - 96)), 0, 255) * (y / 40 % 2));
        return colour;
    }));
}

/// The mean difference of two pictures, and that of their means in the channel where it is largest.
std::pair<double, double> compared(const Bitmap& one, const Bitmap& other) {
    double apart = 0;
    std::array<double, 4> brighter{};
    everywhere(one.width(), one.height(), [&](int x, int y) {
        apart += difference(at(one, x, y), at(other, x, y));
        for (int channel = 0; channel < 4; ++channel)
            brighter[channel] += one.row(y)[x * 4 + channel] - other.row(y)[x * 4 + channel];
    });
    const double count = double(one.width()) * one.height();
    const auto [least, largest] = std::ranges::minmax(brighter);
    return {apart / count, std::max(-least, largest) / count};
}

}

TEST(Filters, leaveAlphaWhereItWas) {
    const auto before = drawn(sticker(), side, side);
    for (const auto& [name, filter] : all()) {
        const auto after = drawn(sticker().filtered(filter), side, side);
        const bool spreads = filter.reach() > 0 || !filter.keepsOpaque();
        int max = 0;
        bool premultiplied = true;
        everywhere(side, side, [&](int x, int y) {
            const auto pixel = at(after, x, y);
            max = std::max(max, std::abs(pixel.alpha - at(before, x, y).alpha));
            premultiplied &= std::max({pixel.red, pixel.green, pixel.blue}) <= pixel.alpha + 1;
        });
        EXPECT_TRUE(premultiplied) << name;
        EXPECT_TRUE(spreads || max == 0) << name;
    }
}

TEST(Filters, goWithTheirPictureAndAreInPartAsInTheWhole) {
    for (const auto& [name, filter] : all()) {
        const Image image = picture().clamped().filtered(filter).cropped(whole);
        const Bitmap still = drawn(image, side, side);
        const Image moved = image.transformed(Transform().translated(12, 8));
        const Bitmap part = Canvas::bitmap(moved, {52, 38, 60, 50});
        int apart = 0;
        everywhere(60, 50, [&](int x, int y) {
            apart = std::max(apart, difference(at(part, x, y), at(still, x + 40, y + 30)));
        });
        EXPECT_LE(apart, 2) << name;
    }
}

TEST(Filters, knowWhetherWhatIsOpaqueEverywhereStaysSo) {
    const Image everywhere = Image::bitmap(drawn(picture(), side, side), true).clamped();
    for (const auto& [name, filter] : all()) {
        const Image filtered = everywhere.filtered(filter);
        EXPECT_EQ(filtered.isOpaqueOver(whole), name != "cube") << name;
        EXPECT_EQ(at(drawn(filtered, side, side), 50, 50).alpha == 255, name != "cube") << name;
    }
}

TEST(Filters, lookTheSameAtHalfTheSize) {
    const auto half = Transform().scaled(0.5, 0.5);
    for (const auto& [name, filter] : all()) {
        const Image filtered = picture().clamped().filtered(filter).cropped(whole);
        const auto small = drawn(filtered.transformed(half), side / 2, side / 2);
        const auto halved =
            drawn(Image::bitmap(drawn(filtered, side, side)).transformed(half), side / 2, side / 2);
        const auto [apart, brighter] = compared(small, halved);
        EXPECT_LE(apart, name == "comic" ? 12 : 6) << name;
        EXPECT_LE(brighter, 3) << name;
    }
}

TEST(Filters, holdWhatIsOutOfMeasure) {
    const Image image = picture();
    const double nan = std::nan("");
    const double endless = std::numeric_limits<double>::infinity();
    Filters::ColourMatrix broken;
    broken.rows[1][2] = nan;
    Filters::ColourMatrix wild;
    wild.rows[0] = {1e308, -1e308, 1e30, -1e30};
    wild.lift = {9, -9, 0};
    const std::pair<Filter, bool> cases[] = {{broken, false},
                                             {Filters::ColourCube{}, false},
                                             {Filters::ColourCube{1 << 20, nullptr}, false},
                                             {Filters::Posterize{256}, false},
                                             {Filters::Blur{0}, false},
                                             {Filters::Blur{-3}, false},
                                             {Filters::Blur{nan}, false},
                                             {Filters::Glow{nan, 1}, false},
                                             {Filters::Glow{5, -1}, false},
                                             {Filters::Pixel{nan, {}}, false},
                                             {Filters::Pixel{20, {endless, 0}}, false},
                                             {Filters::Vignette{nan, 1}, false},
                                             {Filters::Vignette{1, 0}, false},
                                             {Filters::Vhs{nan, 0, 0}, false},
                                             {Filters::Vhs{1, endless, 0}, false},
                                             {wild, true},
                                             {Filters::Posterize{-5}, true},
                                             {Filters::Blur{1e308}, true},
                                             {Filters::Blur{endless}, true},
                                             {Filters::Glow{1e308, 1e308}, true},
                                             {Filters::Pixel{1e308, {-1e300, 7}}, true},
                                             {Filters::Vignette{1e308, 1e-300}, true},
                                             {Filters::Vhs{1e308, 1e300, -5}, true}};
    for (std::size_t each = 0; each < std::size(cases); ++each) {
        const auto& [filter, changes] = cases[each];
        const Image filtered = image.filtered(filter);
        EXPECT_EQ(filtered.node() != image.node(), changes) << each;
        for (const double scale : {1.0, 1e-5, 1e5, 0.07})
            drawn(filtered.clamped().transformed(
                      Transform().rotated(scale == 0.07 ? 30 : 0).scaled(scale, scale)),
                  40, 40);
    }
}
