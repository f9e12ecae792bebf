#include "platform/text/HoleFill.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(HoleFill, smallHolesCloseAndTheRestStays) {
    constexpr int side = 12;
    std::vector<std::uint8_t> mask(side * side, 255);
    const auto clear = [&](int x, int y) { mask[std::size_t(y * side + x)] = 0; };
    clear(2, 2);
    for (int at = 5; at < 9; ++at) clear(at, 6), clear(at, 7);
    for (const int edge : {0, side - 1}) clear(edge, 4), clear(4, edge);
    mask[9 * side + 2] = mask[9 * side + 3] = 155; // a hole of less than a pixel, in parts
    HoleFill::close(mask, side, side, 4);
    EXPECT_EQ(mask[2 * side + 2], 255);
    EXPECT_EQ(mask[6 * side + 6], 0);
    EXPECT_EQ(mask[9 * side + 3], 255);
    for (const int edge : {0, side - 1}) {
        EXPECT_EQ(mask[std::size_t(4 * side + edge)], 0) << "open at the side " << edge;
        EXPECT_EQ(mask[std::size_t(edge * side + 4)], 0) << "open above or below " << edge;
    }
    HoleFill::close(mask, side, side, 8);
    EXPECT_EQ(mask[6 * side + 6], 0) << "not smaller than that";
    HoleFill::close(mask, side, side, 8.01);
    EXPECT_EQ(mask[6 * side + 6], 255);
}
