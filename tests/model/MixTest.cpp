#include "core/model/Mix.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Mix, togglesLanesInTheOrderTheyWereTurnedOff) {
    Mix mix;
    mix.music = 0.5;
    mix.toggleMute(Lane::music);
    mix.toggleMute(Lane::video);
    EXPECT_EQ(mix.muted, (std::vector{Lane::music, Lane::video}));
    EXPECT_EQ(mix.level(Lane::music), 0.5);
    EXPECT_EQ(mix.level(Lane::sounds), 1);
    mix.toggleMute(Lane::music);
    mix.toggleMute(Lane::video);
    EXPECT_EQ(mix.muted, std::nullopt);
}

TEST(Mix, eachLaneHasALevelOfItsOwn) {
    Mix mix;
    for (const auto lane : allLanes) {
        EXPECT_EQ(mix.level(lane), 1);
        mix.setLevel(lane, 0.2 + static_cast<double>(lane));
    }
    for (const auto lane : allLanes) EXPECT_EQ(mix.level(lane), 0.2 + static_cast<double>(lane));
    EXPECT_EQ(mix.music, 0.2 + static_cast<double>(Lane::music));
}
