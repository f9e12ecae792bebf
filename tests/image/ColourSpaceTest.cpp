#include "platform/image/ColourSpace.h"
#include "tests/image/Pictures.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

struct Codes {
    double y, u, v;
};

/// By the definition of the matrices: R'G'B' of 0 to 1 to codes of 0 to 1.
Codes codes(double red, double green, double blue, const Frame& frame) {
    const double shares[3][2] = {{0.299, 0.114}, {0.2126, 0.0722}, {0.2627, 0.0593}};
    const auto [ofRed, ofBlue] = shares[int(frame.matrix)];
    const double luma = ofRed * red + (1 - ofRed - ofBlue) * green + ofBlue * blue;
    const double cb = (blue - luma) / (2 * (1 - ofBlue));
    const double cr = (red - luma) / (2 * (1 - ofRed));
    const double codeOf8 = std::ldexp(1.0, frame.depth - 8);
    const double max = std::ldexp(1.0, frame.depth) - 1;
    if (frame.fullRange) return {luma, cb + 128 * codeOf8 / max, cr + 128 * codeOf8 / max};
    const auto code = [&](double value) { return value * codeOf8 / max; };
    return {code(16 + 219 * luma), code(128 + 224 * cb), code(128 + 224 * cr)};
}

Bitmap shown(const Frame& frame) {
    const Size size = frame.uprightSize();
    return drawn(Image::frame(frame), int(size.width), int(size.height));
}

Pixel plain(const Frame& kind, double red, double green, double blue) {
    const auto [y, u, v] = codes(red, green, blue, kind);
    return at(
        shown(frameOf(kind, [=](int plane, double, double) { return plane == 0   ? y
                                                                    : plane == 1 ? u
                                                                                 : v; })),
        8, 8);
}

}

TEST(ColourSpaces, coloursComeBackFromEveryMatrixRangeAndDepth) {
    for (const auto matrix : {Frame::Matrix::bt601, Frame::Matrix::bt709, Frame::Matrix::bt2020}) {
        for (const bool full : {false, true}) {
            for (const int depth : {8, 10, 12, 16}) {
                Frame kind = form(16, 16, Frame::Layout::chroma444, depth);
                kind.matrix = matrix;
                kind.fullRange = full;
                for (int corner = 0; corner < 27; ++corner) {
                    const int red = corner % 3 * 127;
                    const int green = corner / 3 % 3 * 127;
                    const int blue = corner / 9 * 127;
                    const Pixel found = plain(kind, red / 255.0, green / 255.0, blue / 255.0);
                    EXPECT_LE(difference(found, {red, green, blue, 255}), depth == 8 ? 2 : 1)
                        << found << ", matrix " << int(matrix) << ", depth " << depth << ", full " << full;
                }
            }
        }
    }
}

TEST(ColourSpaces, whiteAndBlackAreExact) {
    for (const int depth : {8, 10, 16}) {
        for (const bool full : {false, true}) {
            for (const auto layout : {Frame::Layout::grey, Frame::Layout::chroma420}) {
                Frame kind = form(16, 16, layout, depth);
                kind.fullRange = full;
                EXPECT_EQ(plain(kind, 1, 1, 1), (Pixel{255, 255, 255, 255})) << depth << full;
                EXPECT_EQ(plain(kind, 0, 0, 0), (Pixel{0, 0, 0, 255})) << depth << full;
            }
        }
    }
}

TEST(ColourSpaces, oneTakeLooksTheSameHoweverItIsStored) {
    const Bitmap usual = shown(frameOf(form(66, 50), waves));
    Frame interleaved = form(66, 50);
    interleaved.interleavedChroma = true;
    EXPECT_EQ(difference(shown(frameOf(interleaved, waves)), usual), 0);
    Frame deep = form(66, 50, Frame::Layout::chroma420, 10);
    const Bitmap tenBits = shown(frameOf(deep, waves));
    EXPECT_LE(difference(tenBits, usual), 3);
    deep.interleavedChroma = deep.highBits = true;
    EXPECT_EQ(difference(shown(frameOf(deep, waves)), tenBits), 0);
    const auto centred = [](Frame::Layout layout) {
        Frame kind = form(66, 50, layout);
        kind.chromaSite = Frame::ChromaSite::centre;
        // Its inside: the edges of wide chroma samples repeat further in.
        return drawn(Image::frame(frameOf(kind, waves)).transformed(Transform().translated(-3, -3)), 60, 44);
    };
    for (const auto layout : {Frame::Layout::chroma422, Frame::Layout::chroma444})
        EXPECT_LE(difference(centred(layout), centred(Frame::Layout::chroma420)), 6);
    // From the bottom up, as some decoders write.
    Frame upward = frameOf(form(66, 50), waves);
    for (int plane = 0; plane < 3; ++plane) {
        upward.planes[plane] += upward.strides[plane] * ((plane == 0 ? 50 : 25) - 1);
        upward.strides[plane] *= -1;
    }
    const auto flipped =
        drawn(Image::frame(upward).transformed(Transform().scaled(1, -1).translated(0, 50)), 66, 50);
    EXPECT_LE(difference(flipped, usual), 1);
}

TEST(ColourSpaces, turnedFramesAreTheUprightOnesTurned) {
    for (const auto layout : {Frame::Layout::chroma420, Frame::Layout::grey}) {
        Frame frame = frameOf(form(70, 46, layout), waves);
        const Image upright = Image::frame(frame);
        for (frame.turn = 1; frame.turn < 4; ++frame.turn) {
            const Size size = frame.uprightSize();
            const auto turn = Transform()
                                  .translated(-35, -23)
                                  .rotated(90 * frame.turn)
                                  .translated(size.width / 2, size.height / 2);
            EXPECT_EQ(
                difference(shown(frame), drawn(upright.transformed(turn), int(size.width), int(size.height))),
                0);
        }
    }
}

TEST(ColourSpaces, chromaLiesWhereItsSiteSays) {
    // A colour that rises steeply along the picture, again and again, is found by its place, not by its
    // neighbour's: half a pixel off is three levels.
    const auto wave = [](double pixels) { return 0.5 + 0.1 * std::sin(pixels * 0.15); };
    const auto ramp = [wave](double siteX, double siteY) {
        return [=](int plane, double x, double y) {
            if (plane == 0) return 0.5;
            return plane == 1 ? wave(x * 128 - siteX) : wave(y * 96 - siteY);
        };
    };
    const std::tuple<Frame::ChromaSite, double, double> sites[] = {{Frame::ChromaSite::left, 0.5, 0},
                                                                   {Frame::ChromaSite::centre, 0, 0},
                                                                   {Frame::ChromaSite::topLeft, 0.5, 0.5}};
    Frame full = form(128, 96, Frame::Layout::chroma444, 16);
    const Bitmap truth = shown(frameOf(full, ramp(0, 0)));
    for (const auto& [site, x, y] : sites) {
        Frame kind = form(128, 96, Frame::Layout::chroma420, 16);
        kind.chromaSite = site;
        const Bitmap found = shown(frameOf(kind, ramp(x, y)));
        for (int place = 4; place < 90; ++place)
            EXPECT_LE(difference(at(found, place, place), at(truth, place, place)), 2)
                << int(site) << " at " << place;
    }
}

TEST(ColourSpaces, alphaIsStraightInFramesAndHidesColour) {
    Frame kind = form(40, 40, Frame::Layout::chroma444);
    kind.hasAlpha = true;
    const Frame frame = frameOf(kind, [](int plane, double x, double) {
        return plane == 3 ? (x < 0.5 ? 0.0 : 0.5) : plane == 0 ? 235 / 255.0 : 128 / 255.0;
    });
    EXPECT_EQ(at(shown(frame), 5, 5), (Pixel{0, 0, 0, 0}));
    EXPECT_EQ(at(shown(frame), 35, 5), (Pixel{128, 128, 128, 128}));
    const auto scaled = drawn(Image::frame(frame).transformed(Transform().scaled(0.4, 0.4)), 16, 16);
    EXPECT_EQ(at(scaled, 14, 5), (Pixel{128, 128, 128, 128}));
    std::vector<std::uint8_t> bytes(16 * 16 * 4);
    for (std::size_t pixel = 0; pixel < 256; ++pixel) bytes[pixel * 4 + 2] = 200, bytes[pixel * 4 + 3] = 51;
    Frame packed = form(16, 16, Frame::Layout::bgra);
    packed.planes[0] = bytes.data();
    packed.strides[0] = 64;
    EXPECT_EQ(at(shown(packed), 3, 3), (Pixel{200, 0, 0, 255}));
    packed.hasAlpha = true;
    EXPECT_EQ(at(shown(packed), 3, 3), (Pixel{40, 0, 0, 51}));
}

TEST(ColourSpaces, highDynamicRangeIsToneMappedSmoothly) {
    for (const auto transfer : {Frame::Transfer::hlg, Frame::Transfer::pq}) {
        Frame kind = form(16, 16, Frame::Layout::chroma444, 10);
        kind.matrix = Frame::Matrix::bt2020;
        kind.primaries = Frame::Primaries::bt2020;
        kind.transfer = transfer;
        int last = -1;
        for (int step = 0; step <= 100; ++step) {
            const auto found = plain(kind, step / 100.0, step / 100.0, step / 100.0);
            EXPECT_GE(found.green, last) << "brighter never comes out darker";
            EXPECT_LE(std::abs(found.red - found.green) + std::abs(found.blue - found.green), 2)
                << "grey stays grey";
            last = found.green;
            // The cube between its entries is near the formula.
            const double code = step / 100.0;
            const auto truth = ColourSpace::toneMapped({code, code, code}, transfer, kind.primaries);
            EXPECT_NEAR(found.green, truth.green * 255, 2) << step;
        }
        EXPECT_EQ(last, 255);
    }
    // Reference white (BT.2408: 75 % HLG, 58 % PQ) is bright and leaves room; a face (around half HLG) is as
    // bright as in other video.
    const auto grey = [](double code, Frame::Transfer transfer) {
        return ColourSpace::toneMapped({code, code, code}, transfer, Frame::Primaries::bt2020).green;
    };
    EXPECT_NEAR(grey(0.75, Frame::Transfer::hlg), grey(0.58, Frame::Transfer::pq), 0.01);
    EXPECT_NEAR(grey(0.75, Frame::Transfer::hlg), 0.89, 0.02);
    EXPECT_NEAR(grey(0.5, Frame::Transfer::hlg), 0.57, 0.06);
    // What BT.709 cannot show keeps its hue and its shades.
    double before = 1;
    for (int step = 0; step <= 10; ++step) {
        const auto light = ColourSpace::toneMapped({0.6, 0.6 - step * 0.06, 0.6 - step * 0.06},
                                                   Frame::Transfer::hlg, Frame::Primaries::bt2020);
        EXPECT_GT(light.red, light.green - 1e-9);
        EXPECT_LT(light.green, before) << step;
        before = light.green;
    }
}

namespace {

/// What stands for an sRGB colour in BT.2020, coded for a BT.1886 display.
ColourSpace::Channels inWidePrimaries(const Pixel& pixel) {
    constexpr double shares[3][3] = {
        {0.627404, 0.329283, 0.043313}, {0.069097, 0.919540, 0.011362}, {0.016391, 0.088013, 0.895595}};
    const auto light = [](int level) { return std::pow(level / 255.0, 2.4); };
    const auto coded = [&](const double(&row)[3]) {
        return std::pow(row[0] * light(pixel.red) + row[1] * light(pixel.green) + row[2] * light(pixel.blue),
                        1 / 2.4);
    };
    return {coded(shares[0]), coded(shares[1]), coded(shares[2])};
}

}

TEST(ColourSpaces, colourInsideTheGamutStaysWhatItIs) {
    Frame kind = form(16, 16, Frame::Layout::chroma444, 10);
    kind.matrix = Frame::Matrix::bt2020;
    kind.primaries = Frame::Primaries::bt2020;
    const Pixel patches[] = {{230, 30, 30, 255},   {40, 60, 220, 255}, {128, 30, 30, 255},
                             {200, 150, 120, 255}, {90, 180, 70, 255}, {250, 240, 60, 255}};
    for (const Pixel& patch : patches) {
        const auto wide = inWidePrimaries(patch);
        EXPECT_LE(difference(plain(kind, wide.red, wide.green, wide.blue), patch), 3) << patch;
    }
    // At the very edge the formula is as near; the cube's steps show by up to twenty levels.
    for (const Pixel& patch :
         {Pixel{255, 0, 0, 255}, {0, 255, 0, 255}, {0, 0, 255, 255}, {255, 0, 255, 255}}) {
        const auto found =
            ColourSpace::toneMapped(inWidePrimaries(patch), Frame::Transfer::sdr, Frame::Primaries::bt2020);
        EXPECT_NEAR(found.red * 255, patch.red, 3) << patch;
        EXPECT_NEAR(found.green * 255, patch.green, 3) << patch;
        EXPECT_NEAR(found.blue * 255, patch.blue, 3) << patch;
    }
}

TEST(ColourSpaces, brightLightComesDownAsTheReferenceCurveBringsIt) {
    // ITU-R BT.2390, 5.4.1: from a display of 1000 cd/m² to one of 203, by a spline in PQ codes.
    const auto code = [](double light) {
        const double power = std::pow(light / 10000, 0.1593017578125);
        return std::pow((0.8359375 + 18.8515625 * power) / (1 + 18.6875 * power), 78.84375);
    };
    const double source = code(1000), target = code(203) / source, knee = 1.5 * target - 0.5;
    for (const double light : {1.0, 20.0, 80.0, 150.0, 203.0, 300.0, 500.0, 800.0, 1000.0}) {
        double value = code(light) / source;
        if (value > knee) {
            const double t = (value - knee) / (1 - knee);
            value = (2 * t * t * t - 3 * t * t + 1) * knee + (t * t * t - 2 * t * t + t) * (1 - knee) +
                    (3 * t * t - 2 * t * t * t) * target;
        }
        const double coded = value * source;
        const auto found = ColourSpace::toneMapped({code(light), code(light), code(light)},
                                                   Frame::Transfer::pq, Frame::Primaries::bt2020);
        const auto shown = [&](double green) { return code(203 * std::pow(green, 2.4)); };
        EXPECT_NEAR(shown(found.green), coded, 0.012) << light;
    }
}
