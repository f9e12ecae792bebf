#include "platform/image/filters/ColourMatrix.h"
#include "tests/image/FilterKinds.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;
using namespace murbo::FilterKinds;

TEST(ColourMatrix, changeColoursAsTheyPromise) {
    const Colour orange{240, 120, 30, 255};
    using Filters::ColourMatrix;
    for (const auto& [matrix, expected] : // worked out elsewhere
         {std::pair{ColourMatrix::mono(), Pixel{158, 158, 158, 255}},
          {ColourMatrix::sepia(0.9), {181, 149, 102, 255}},
          {ColourMatrix::sepia(0.2), {217, 129, 55, 255}},
          {ColourMatrix::saturated(1.6), {255, 109, 0, 255}},
          {ColourMatrix::tinted({10, 200, 90, 255}), {5, 109, 49, 255}}})
        EXPECT_LE(difference(seen(orange, matrix), expected), 1);
    EXPECT_EQ(seen(orange, Filters::ColourMatrix::inverted()), (Pixel{15, 135, 225, 255}));
    EXPECT_EQ(seen(orange, Filters::ColourMatrix::saturated(1)), (Pixel{240, 120, 30, 255}));
    EXPECT_EQ(seen(Colour::white, Filters::ColourMatrix::tinted({10, 200, 90, 255})),
              (Pixel{10, 200, 90, 255}));
    for (const double by : {0.12, -0.18}) {
        const int white = by > 0 ? 255 : 196;
        EXPECT_EQ(seen(Colour::white, Filters::ColourMatrix::brightened(by)),
                  (Pixel{white, white, white, 255}));
        EXPECT_EQ(seen(Colour::black, Filters::ColourMatrix::brightened(by)), (Pixel{0, 0, 0, 255}));
        EXPECT_NEAR(seen({128, 128, 128, 255}, Filters::ColourMatrix::brightened(by)).red, 128 + 255 * by, 2);
    }
    // Half clear: the colour is worked out straight, then multiplied by its alpha again.
    EXPECT_LE(difference(seen({240, 120, 30, 128}, Filters::ColourMatrix::inverted()), {8, 68, 113, 128}), 1);
}

TEST(ColourMatrix, sumsAndBendsByItsFormula) {
    Filters::ColourMatrix matrix;
    matrix.rows = {{{0.5, 0.3, -0.2, 0.1}, {-0.4, 1.7, 0.2, -0.05}, {0.1, 0.2, 0.9, 0}}};
    for (const bool bent : {false, true}) {
        if (bent) matrix.lift = {0.2, -0.25, 0.1}, matrix.contrast = 0.15;
        for (int at = 0; at < 400; ++at) {
            const Colour colour{std::uint8_t(at * 77), std::uint8_t(at * 31), std::uint8_t(at * 53), 255};
            const auto found = seen(colour, matrix);
            const int channels[] = {found.red, found.green, found.blue};
            for (int out = 0; out < 3; ++out) {
                const auto& row = matrix.rows[out];
                const double sum = row[0] * colour.red + row[1] * colour.green + row[2] * colour.blue;
                const double v = std::clamp(sum / 255 + row[3], 0.0, 1.0);
                const double bend = matrix.lift[out] + matrix.contrast * (2 * v - 1);
                EXPECT_NEAR(channels[out], std::clamp(v + 4 * v * (1 - v) * bend, 0.0, 1.0) * 255, 1)
                    << at << " channel " << out;
            }
        }
    }
}
