#include "platform/base/Names.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(Names, standAsPeopleExpect) {
    const std::vector<std::filesystem::path> expected{
        "/f/a b/1.mp4",   "/f/clip 1.mp4",    "/f/clip 02.mp4", "/f/clip 2.mp4", "/f/Clip 2.mp4",
        "/f/clip 10.mp4", "/f/clip 10/a.mp4", "/f/zebra.mp4",   "/f/กล้อง 9.mp4", "/f/กล้อง 10.mp4"};
    auto paths = expected;
    for (int turn = 0; turn < 5; ++turn) {
        std::rotate(paths.begin(), paths.begin() + 3, paths.end());
        std::reverse(paths.begin() + turn, paths.end());
        Names::sort(paths);
        EXPECT_EQ(paths, expected);
        EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end(), [](const auto& one, const auto& other) {
            return Names::before(one.native(), other.native());
        }));
    }
}

TEST(Names, noTwoTextsAreEqualUnlessTheyAreTheSame) {
    for (const auto& [one, other] :
         {std::pair{"1", "01"}, {"é", "e\u0301"}, {"\xFF", "\xFE"}, {"", "\u200B"}})
        EXPECT_NE(Names::before(one, other), Names::before(other, one)) << one << " " << other;
    EXPECT_FALSE(Names::before("1", "1"));
}
