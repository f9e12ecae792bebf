#include "platform/text/HoleFill.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(HoleFill, smallHolesCloseAndTheRestStays) {
    constexpr int side = 12;
    std::vector<std::uint8_t> mask(side * side, 255);
    const auto clear = [&](int x, int y) { mask[std::size_t(y * side + x)] = 0; };
    clear(2, 2);
    for (int at = 5; at < 9; ++at) clear(at, 6), clear(at, 7);
    clear(0, 11);
    HoleFill::close(mask, side, side, 4);
    EXPECT_EQ(mask[2 * side + 2], 255);
    EXPECT_EQ(mask[6 * side + 6], 0);
    EXPECT_EQ(mask[11 * side], 0);
}
