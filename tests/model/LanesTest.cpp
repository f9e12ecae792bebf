#include "core/model/Lanes.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Lanes, aBlockTakesTheFirstFreeRow) {
    using Rows = std::vector<std::size_t>;
    EXPECT_EQ(Lanes::assign({{5, 9}, {0, 5.0004}, {1, 2}, {2.1, 3}, {0, 1}}), (Rows{0, 0, 1, 1, 1}));
    EXPECT_EQ(Lanes::assign({{5, 9}, {0, 5.0006}}), (Rows{1, 0}));
    EXPECT_EQ(Lanes::assign({{0, 1}, {1, 5}, {2, 3}}), (Rows{0, 0, 1})) << "a row is taken to its last end";
    EXPECT_TRUE(Lanes::assign({}).empty());
}
