#include "core/render/stage/VisibleBounds.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(VisibleBounds, holdWhatIsNotClear) {
    Bitmap bitmap(9, 7);
    EXPECT_TRUE(VisibleBounds(bitmap).empty());
    bitmap.row(2)[3 * 4 + 3] = 1;
    bitmap.row(4)[6 * 4 + 3] = 255;
    bitmap.row(4)[0 * 4 + 2] = 9; // colour without alpha
    const VisibleBounds bounds(bitmap);
    EXPECT_EQ(std::tuple(bounds.left, bounds.top, bounds.right, bounds.bottom), std::tuple(3, 2, 7, 5));
    const Bitmap cut = bounds.cutOut(bitmap, 2);
    EXPECT_EQ(std::pair(cut.width(), cut.height()), std::pair(8, 7));
    EXPECT_EQ(cut.row(2)[2 * 4 + 3], 1);
    EXPECT_EQ(cut.row(4)[5 * 4 + 3], 255);
    EXPECT_EQ(cut.row(1)[2 * 4 + 3], 0);
}
