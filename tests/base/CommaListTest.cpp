#include "platform/base/CommaList.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

TEST(CommaList, hasWhatStandsBetweenCommas) {
    EXPECT_THAT(CommaList::entries(""), ElementsAre(""));
    EXPECT_THAT(CommaList::entries("C01"), ElementsAre("C01"));
    EXPECT_THAT(CommaList::entries("C01, C02,,"), ElementsAre("C01", " C02", "", ""));
}
