#include "core/model/VideoTime.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(VideoTime, findsTheCutThatPlays) {
    const List<Cut> cuts =
        std::vector<Cut>{{.start = 10, .end = 12}, {.start = 9, .end = 3}, {.start = 20, .end = 24}};
    EXPECT_EQ(VideoTime::starts(cuts), (std::vector{0.0, 2.0, 2.0}));
    struct Case {
        double time;
        std::size_t cut;
        double at;
    };
    for (const auto& [time, cut, at] :
         {Case{-1, 0, 10}, {0, 0, 10}, {1.5, 0, 11.5}, {2, 2, 20}, {5, 2, 23}, {99, 2, 24}}) {
        const auto place = VideoTime::locate(time, cuts);
        ASSERT_TRUE(place) << time;
        EXPECT_EQ(place->cut, cut) << time;
        EXPECT_EQ(place->at, at) << time;
    }
    EXPECT_FALSE(VideoTime::locate(0, {}));
}

TEST(VideoTime, aCutShowsItsStartAndNotItsEndWithinAMillisecond) {
    const Cut cut{.start = 2, .end = 4};
    for (const auto& [at, shown] :
         {std::pair{1.9985, false}, {1.9995, true}, {3.9985, true}, {3.9995, false}})
        EXPECT_EQ(VideoTime::shows(cut, at), shown) << at;
}
