#include "app/editor/playback/Player.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Player, withoutSoundRunsByTheComputersClock) {
    double now = 100;
    Player player([&] { return now; });
    Video video;
    video.cuts.edit().push_back(Cut::generated("none", 1, std::nullopt, 10));
    player.load(PlayerItem::video(video, {}, {}, "", std::nullopt), 12);
    EXPECT_EQ(player.place(), 10) << "it does not leave the item";
    player.stand(4);
    player.run(2);
    now += 1;
    EXPECT_EQ(player.place(), 6);
    player.seek(1);
    now += 0.5;
    EXPECT_EQ(player.place(), 2) << "it runs on from there";
    player.run(-1);
    now += 5;
    EXPECT_EQ(player.place(), 0);
}
