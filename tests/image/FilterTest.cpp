#include "tests/image/Pictures.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

constexpr int side = 192;
const Rect whole{0, 0, side, side};

Colour wavy(int x, int y) {
    return {std::uint8_t(128 + 100 * std::sin(x * 0.12 + y * 0.02)),
            std::uint8_t(128 + 90 * std::cos(y * 0.09 - x * 0.05)),
            std::uint8_t(130 + 90 * std::tanh((x - 80) / 5.0)), 255};
}

Image picture() {
    return Image::bitmap(bitmapOf(side, side, wavy));
}

/// Letters of all alphas, with clear between them.
Image sticker() {
    return Image::bitmap(bitmapOf(side, side, [](int x, int y) {
        Colour colour = wavy(x, y);
        colour.alpha = std::uint8_t(std::clamp(20 * (60 - std::abs(x - 96)), 0, 255) * (y / 40 % 2));
        return colour;
    }));
}

ColourCube cube(float alpha) {
    auto values = std::make_shared<std::vector<float>>();
    for (int at = 0; at < 32 * 32 * 32; ++at) {
        const float channels[] = {float(at / 1024) / 31, float(at / 32 % 32) / 31, float(at % 32) / 31, 1};
        for (const float value : channels) values->push_back(value * alpha);
    }
    return {32, values};
}

std::vector<std::pair<const char*, Filter>> all() {
    return {{"grey", ColourMatrix::grey()},
            {"sepia", ColourMatrix::sepia(0.9)},
            {"contrast", ColourMatrix::contrasted(1.5)},
            {"cube", cube(0.5f)},
            {"posterised", Posterised{6}},
            {"blurred", Blurred{9}},
            {"bloomed", Bloomed{7, 0.9}},
            {"pixellated", Pixellated{13, {96, 96}}},
            {"vignetted", Vignetted{1.2, 2}},
            {"inked", Inked{}},
            {"taped", Taped{6, 2.5, 41}}};
}

Pixel mean(const Bitmap& bitmap) {
    double sums[4] = {};
    for (int y = 0; y < bitmap.height(); ++y) {
        for (int x = 0; x < bitmap.width(); ++x) {
            const auto pixel = at(bitmap, x, y);
            sums[0] += pixel.red, sums[1] += pixel.green, sums[2] += pixel.blue, sums[3] += pixel.alpha;
        }
    }
    const double count = double(bitmap.width()) * bitmap.height();
    return {int(sums[0] / count), int(sums[1] / count), int(sums[2] / count), int(sums[3] / count)};
}

double meanDifference(const Bitmap& one, const Bitmap& other) {
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) sum += difference(at(one, x, y), at(other, x, y));
    }
    return sum / (double(one.width()) * one.height());
}

}

TEST(Filters, changeColoursAsTheyPromise) {
    const auto seen = [](Colour colour, const Filter& filter) {
        return at(drawn(Image::colour(colour).filtered(filter), 1, 1), 0, 0);
    };
    const Colour orange{240, 120, 30, 255};
    const auto grey = seen(orange, ColourMatrix::grey());
    EXPECT_EQ(grey.red, grey.green);
    EXPECT_EQ(grey.red, grey.blue);
    EXPECT_EQ(seen(orange, ColourMatrix::inverted()), (Pixel{15, 135, 225, 255}));
    EXPECT_EQ(seen(orange, ColourMatrix::saturated(1)), (Pixel{240, 120, 30, 255}));
    EXPECT_EQ(seen(Colour::white, ColourMatrix::tinted({10, 200, 90, 255})), (Pixel{10, 200, 90, 255}));
    EXPECT_EQ(seen(orange, Posterised{6}), (Pixel{255, 102, 51, 255}));
    EXPECT_EQ(seen(orange, cube(1)), (Pixel{30, 120, 240, 255})) << "a cube that changes red and blue over";
    EXPECT_LE(difference(seen(orange, cube(0.5f)), {15, 60, 120, 128}), 1);
    for (const double by : {0.12, -0.18}) {
        const int white = by > 0 ? 255 : 196;
        EXPECT_EQ(seen(Colour::white, ColourMatrix::brightened(by)), (Pixel{white, white, white, 255}));
        EXPECT_EQ(seen(Colour::black, ColourMatrix::brightened(by)), (Pixel{0, 0, 0, 255}));
        EXPECT_NEAR(seen({128, 128, 128, 255}, ColourMatrix::brightened(by)).red, 128 + 255 * by, 2);
    }
    // Half clear: the colour is reckoned straight, and laid on its alpha again.
    EXPECT_LE(difference(seen({240, 120, 30, 128}, ColourMatrix::inverted()), {8, 68, 113, 128}), 1);
}

TEST(Filters, leaveAlphaWhereItWas) {
    const auto before = drawn(sticker(), side, side);
    for (const auto& [name, filter] : all()) {
        const auto after = drawn(sticker().filtered(filter), side, side);
        const bool spreads =
            std::holds_alternative<Blurred>(filter) || std::holds_alternative<Bloomed>(filter) ||
            std::holds_alternative<Pixellated>(filter) || std::holds_alternative<ColourCube>(filter);
        int most = 0;
        bool premultiplied = true;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const auto pixel = at(after, x, y);
                most = std::max(most, std::abs(pixel.alpha - at(before, x, y).alpha));
                premultiplied &= std::max({pixel.red, pixel.green, pixel.blue}) <= pixel.alpha + 1;
            }
        }
        EXPECT_TRUE(premultiplied) << name;
        EXPECT_TRUE(spreads || most == 0) << name;
    }
}

TEST(Filters, lookTheSameAtHalfTheSize) {
    const auto half = Transform().scaled(0.5, 0.5);
    for (const auto& [name, filter] : all()) {
        const Image filtered = picture().clamped().filtered(filter).cropped(whole);
        const auto small = drawn(filtered.transformed(half), side / 2, side / 2);
        const auto halved =
            drawn(Image::bitmap(drawn(filtered, side, side)).transformed(half), side / 2, side / 2);
        EXPECT_LE(meanDifference(small, halved), std::holds_alternative<Inked>(filter) ? 12 : 6) << name;
        EXPECT_LE(difference(mean(small), mean(halved)), 3) << name;
    }
}

TEST(Filters, turnWithTheirPicture) {
    // Drawn on a grid of its own and turned by a quarter: the very pixels, elsewhere.
    for (const auto& [name, filter] : all()) {
        const auto upright = drawn(picture().filtered(filter), side, side);
        const auto turned = drawn(
            picture().filtered(filter).transformed(Transform().rotated(90).translated(side, 0)), side, side);
        int most = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                most = std::max(most, difference(at(upright, x, y), at(turned, side - 1 - y, x)));
        }
        EXPECT_LE(most, std::holds_alternative<Vignetted>(filter) ? 1 : 0) << name;
    }
}

TEST(Filters, meetTheirEdges) {
    const Image flat = Image::colour({90, 120, 200, 255}).cropped(whole);
    const Pixel colour{90, 120, 200, 255};
    for (const double sigma : {1.0, 5.0, 18.0, 300.0}) {
        const auto clamped = drawn(flat.clamped().filtered(Blurred{sigma}), side, side);
        EXPECT_LE(difference(at(clamped, 0, 90), colour), 1) << sigma;
        const Image bare = flat.filtered(Blurred{sigma});
        EXPECT_NEAR(bare.extent().x, -3 * sigma, 0.001);
        if (sigma < side / 8.0) {
            EXPECT_NEAR(at(drawn(bare, side, side), 0, 90).alpha,
                        127.5 * (1 + std::erf(0.5 / sigma / std::sqrt(2.0))), 3)
                << sigma;
            EXPECT_EQ(at(drawn(bare, side, side), 96, 96), colour) << sigma;
        }
    }
    const auto cells = drawn(picture().clamped().filtered(Pixellated{16, {96, 96}}), side, side);
    EXPECT_EQ(at(cells, 88, 88), at(cells, 103, 103)) << "one cell lies round the middle";
    EXPECT_NE(at(cells, 87, 96), at(cells, 88, 96));
}

TEST(Filters, blurAsAGaussianDoes) {
    const Image step = Image::colour(Colour::white)
                           .cropped({96, 0, 96, side})
                           .over(Image::colour(Colour::black).cropped(whole))
                           .clamped();
    for (const double sigma : {1.5, 4.0, 7.0, 18.0}) {
        const auto blurred = drawn(step.filtered(Blurred{sigma}), side, side);
        for (int x = 60; x < 132; ++x) {
            const double truth = 127.5 * (1 + std::erf((x + 0.5 - 96) / (sigma * std::sqrt(2.0))));
            EXPECT_NEAR(at(blurred, x, 50).green, truth, 3) << sigma << " at " << x;
        }
    }
}

TEST(Filters, holdWhatIsOutOfMeasure) {
    const Image image = picture();
    const double nan = std::nan("");
    const double endless = std::numeric_limits<double>::infinity();
    ColourMatrix broken;
    broken.rows[1][2] = nan;
    ColourMatrix wild;
    wild.rows[0] = {1e308, -1e308, 1e30, -1e30};
    wild.lift = {9, -9, 0};
    const std::pair<Filter, bool> cases[] = {{broken, false},
                                             {ColourCube{}, false},
                                             {ColourCube{1 << 20, cube(1).values}, false},
                                             {Posterised{256}, false},
                                             {Blurred{0}, false},
                                             {Blurred{-3}, false},
                                             {Blurred{nan}, false},
                                             {Bloomed{nan, 1}, false},
                                             {Bloomed{5, -1}, false},
                                             {Pixellated{nan, {}}, false},
                                             {Pixellated{20, {endless, 0}}, false},
                                             {Vignetted{nan, 1}, false},
                                             {Vignetted{1, 0}, false},
                                             {Taped{nan, 0, 0}, false},
                                             {Taped{1, endless, 0}, false},
                                             {wild, true},
                                             {Posterised{-5}, true},
                                             {Blurred{1e308}, true},
                                             {Blurred{endless}, true},
                                             {Bloomed{1e308, 1e308}, true},
                                             {Pixellated{1e308, {-1e300, 7}}, true},
                                             {Vignetted{1e308, 1e-300}, true},
                                             {Taped{1e308, 1e300, -5}, true}};
    for (std::size_t each = 0; each < std::size(cases); ++each) {
        const auto& [filter, changes] = cases[each];
        const Image filtered = image.filtered(filter);
        EXPECT_EQ(&filtered.node() != &image.node(), changes) << each;
        for (const double scale : {1.0, 1e-5, 1e5, 0.07})
            drawn(filtered.clamped().transformed(
                      Transform().rotated(scale == 0.07 ? 30 : 0).scaled(scale, scale)),
                  40, 40);
    }
}

TEST(Filters, followUponEachOtherWithoutEnd) {
    Image image = picture();
    for (int at = 0; at < 100'000; ++at) image = image.filtered(ColourMatrix::saturated(1));
    const Image edges = image.clamped().transformed(Transform().scaled(0.1, 0.1));
    EXPECT_EQ(
        difference(drawn(edges, 4, 4), drawn(picture().transformed(Transform().scaled(0.1, 0.1)), 4, 4)), 0);
}

TEST(Filters, ofMirroredPicturesSmoothNothing) {
    const Image image = Image::bitmap(
        bitmapOf(side, side, [](int x, int y) { return (x + y) % 2 ? Colour::white : Colour::black; }));
    const Filter vignette = Vignetted{0.001, 64};
    const auto placed = Transform().scaled(0.75, 0.75).translated(9.3, 7.1);
    for (const auto& turn : {Transform().scaled(-1, 1), Transform().rotated(90), Transform().rotated(180)}) {
        const auto way = placed.then(turn).translated(200, 200);
        EXPECT_LE(difference(drawn(image.filtered(vignette).transformed(way), 400, 400),
                             drawn(image.transformed(way), 400, 400)),
                  1);
    }
}
