#include "platform/base/Shared.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Shared, aCopyStaysAsItWasWhileTheOtherChanges) {
    List<int> one(std::vector{1, 2, 3});
    const List<int> kept = one;
    EXPECT_TRUE(one.same(kept));
    one.edit().push_back(4);
    EXPECT_EQ(kept.size(), 3u);
    EXPECT_NE(one, kept);
    one.edit().pop_back();
    EXPECT_EQ(one, kept);
    EXPECT_FALSE(one.same(kept));
}

TEST(Shared, isClonedOnlyWhileAnotherHoldsIt) {
    List<int> list(std::vector{1});
    const auto* before = &*list;
    list.edit().push_back(2);
    EXPECT_EQ(&*list, before);
    List<int> empty;
    empty.edit().push_back(1);
    EXPECT_TRUE(List<int>().empty());
}
