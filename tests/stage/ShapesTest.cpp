#include "core/render/stage/Shapes.h"
#include "tests/stage/Staged.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A layer on a black stage of 200 x 100 pixels, its middle at (100, 50).
Bitmap drawn(const std::string& layer) {
    return Staged(200, 100).drawn(layer);
}

/// How many pixels are not black.
int covered(const Bitmap& bitmap) {
    int count = 0;
    for (int y = 0; y < bitmap.height(); ++y)
        for (int x = 0; x < bitmap.width(); ++x) count += at(bitmap, x, y) != "000000";
    return count;
}

}

TEST(Shapes, haveTheirSizeOrTheUsualOne) {
    EXPECT_EQ(covered(drawn(R"({"shape": "rect", "w": 0.3, "h": 0.2})")), 60 * 20) << "shares of the frame";
    EXPECT_EQ(covered(drawn(R"({"shape": "rect", "w": 0.3})")), 60 * 60) << "a width alone is a square";
    EXPECT_EQ(covered(drawn(R"({"shape": "rect", "h": 0.2})")), 100 * 20);
    EXPECT_EQ(covered(drawn(R"({"shape": "rect"})")), 100 * 10);
    EXPECT_EQ(covered(drawn(R"({"shape": "rect", "fill": true, "w": 0.1})")), 200 * 100);
    EXPECT_EQ(covered(drawn(R"({"shape": "rect", "w": 0})")), 0);
}

TEST(Shapes, areWhiteOrOfTheirColour) {
    EXPECT_EQ(at(drawn(R"({"shape": "rect", "w": 0.3})"), 100, 50), "FFFFFF");
    EXPECT_EQ(at(drawn(R"({"shape": "circle", "w": 0.3, "color": "FF8000"})"), 100, 50), "FF8000");
    EXPECT_EQ(at(drawn(R"({"shape": "rect", "w": 0.3, "color": "red"})"), 100, 50), "FFFFFF");
    const auto gradient =
        drawn(R"({"shape": "rect", "fill": true, "color": "FF0000", "gradient": "0000FF"})");
    EXPECT_GT(gradient.row(2)[2], 240) << "red at the top";
    EXPECT_GT(gradient.row(97)[0], 240) << "blue at the bottom";
    EXPECT_EQ(at(drawn(R"({"shape": "round", "w": 0.3, "color": "FF0000", "gradient": "0000FF"})"), 100, 50),
              "FF0000");
}

TEST(Shapes, circlesAndRoundCornersLeaveTheirCornersOut) {
    const auto disc = drawn(R"({"shape": "circle", "w": 0.4})");
    EXPECT_NEAR(covered(disc), 3.1416 * 40 * 40, 150);
    EXPECT_EQ(at(disc, 64, 14), "000000");
    const auto pill = drawn(R"({"shape": "circle", "w": 0.4, "h": 0.2})");
    EXPECT_NEAR(covered(pill), 60 * 20 + 3.1416 * 10 * 10, 60) << "its ends are half discs";
    EXPECT_NEAR(covered(drawn(R"({"shape": "round", "w": 0.4})")), 80 * 80 - (4 - 3.1416) * 16 * 16, 60);
    EXPECT_NEAR(covered(drawn(R"({"shape": "round", "w": 0.4, "h": 0.2})")), 80 * 20 - (4 - 3.1416) * 4 * 4,
                20)
        << "a share of the shorter side";
    EXPECT_NEAR(covered(drawn(R"({"shape": "round", "w": 0.4, "radius": 9})")), 3.1416 * 40 * 40, 150);
    EXPECT_EQ(covered(drawn(R"({"shape": "round", "w": 0.4, "radius": 0})")), 80 * 80);
}

TEST(Shapes, aRingIsALineWithinItsSize) {
    const auto ring = drawn(R"({"shape": "ring", "w": 0.4, "color": "00FF00"})");
    EXPECT_EQ(at(ring, 100, 50), "000000");
    EXPECT_EQ(at(ring, 63, 50), "00FF00") << "the middle of its line";
    EXPECT_EQ(at(ring, 137, 50), "00FF00");
    EXPECT_EQ(at(ring, 59, 50), "000000");
    EXPECT_EQ(at(ring, 67, 50), "000000");
}

TEST(Shapes, roundingIsAShareOfTheShorterSide) {
    const auto box = Staged::box(80, 40, Colour::white);
    const Staged stage(80, 40);
    const auto corner = [&](std::optional<double> radius) {
        return covered(stage.drawn(Stage::Shapes::rounded(box, radius)));
    };
    EXPECT_EQ(corner(std::nullopt), 80 * 40);
    EXPECT_EQ(corner(0), 80 * 40);
    EXPECT_EQ(corner(-1), 80 * 40);
    EXPECT_NEAR(corner(0.5), 40 * 40 + 3.1416 * 20 * 20, 80);
    EXPECT_NEAR(corner(0.25), 80 * 40 - (4 - 3.1416) * 100, 60);
    EXPECT_EQ(corner(7), corner(0.5));
}
