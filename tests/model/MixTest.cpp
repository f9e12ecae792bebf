#include "core/model/Mix.h"

#include <ranges>

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
    for (const auto lane : allLanes | std::views::reverse) mix.setLevel(lane, 0.1 * (1 + int(lane)));
    EXPECT_EQ(mix, (Mix{.video = 0.1, .overlays = 0.2, .sounds = 0.1 * 3, .music = 0.4}));
}
