#include "core/model/Bookmark.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Bookmark, isNamedByItsNumberWithoutZeros) {
    EXPECT_EQ(Bookmark{.number = 7}.tag(), "B7");
    EXPECT_EQ(Bookmark{.number = 120}.tag(), "B120");
}
