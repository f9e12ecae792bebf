#include "core/render/footage/Thumbnail.h"

#include <cstring>
#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A picture whose left half is red and whose right half is blue.
struct TwoColours {
    TwoColours(int width, int height) : pixels(static_cast<std::size_t>(width * height)) {
        for (int at = 0; at < width * height; ++at)
            pixels[static_cast<std::size_t>(at)] = at % width < width / 2 ? 0xFFFF0000 : 0xFF0000FF;
        frame.layout = Frame::Layout::bgra;
        frame.width = width;
        frame.height = height;
        frame.planes[0] = reinterpret_cast<const std::uint8_t*>(pixels.data());
        frame.strides[0] = 4 * width;
    }
    std::vector<std::uint32_t> pixels;
    Frame frame;
};

std::pair<int, int> size(int width, int height, double maxSide) {
    const TwoColours picture(width, height);
    const auto made = Thumbnail::of(picture.frame, maxSide);
    return {made.width(), made.height()};
}

using Sides = std::pair<int, int>;

}

TEST(Thumbnail, theLongerSideFitsAndTheShapeStays) {
    EXPECT_EQ(size(640, 360, 160), Sides(160, 90));
    EXPECT_EQ(size(360, 640, 160), Sides(90, 160));
    EXPECT_EQ(size(640, 361, 320), Sides(320, 181)) << "to the nearest pixel";
    EXPECT_EQ(size(80, 40, 160), Sides(80, 40)) << "a smaller one keeps its size";
    EXPECT_EQ(size(2000, 2, 100), Sides(100, 1)) << "never nothing";
}

TEST(Thumbnail, isFilledToItsEdges) {
    const TwoColours picture(640, 360);
    const auto made = Thumbnail::of(picture.frame, 161);
    const auto at = [&](int x, int y) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, made.row(y) + 4 * x, 4);
        return pixel;
    };
    for (const int y : {0, made.height() - 1}) {
        EXPECT_EQ(at(0, y), 0xFFFF0000);
        EXPECT_EQ(at(made.width() - 1, y), 0xFF0000FF);
    }
}

TEST(Thumbnail, holdsTheWholePictureWhereASideIsRounded) {
    TwoColours picture(2, 1000); // turned, so that the upper half is red and the lower one blue
    picture.frame.turn = 1;
    const auto made = Thumbnail::of(picture.frame, 100);
    ASSERT_EQ(Sides(made.width(), made.height()), Sides(100, 1));
    for (const int x : {0, 50, 99}) {
        EXPECT_NEAR(made.row(0)[x * 4], 128, 3) << x;
        EXPECT_NEAR(made.row(0)[x * 4 + 2], 128, 3) << x;
    }
}

TEST(Thumbnail, standsUpright) {
    TwoColours picture(640, 360);
    picture.frame.turn = 1;
    const auto made = Thumbnail::of(picture.frame, 160);
    EXPECT_EQ(Sides(made.width(), made.height()), Sides(90, 160));
    EXPECT_EQ(made.row(0)[2], 0xFF) << "what was left is on top";
    EXPECT_EQ(made.row(159)[0], 0xFF);
    picture.frame.turn = 0;
    picture.frame.pixelAspect = 2;
    const auto wide = Thumbnail::of(picture.frame, 320);
    EXPECT_EQ(Sides(wide.width(), wide.height()), Sides(320, 90));
}
