#include "app/editor/playback/Player.h"
#include "tests/playback/FakeOutput.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A generated video, which needs no file.
PlayerItem item(double length) {
    Video video;
    video.cuts.edit().push_back(Cut::generated("none", 1, std::nullopt, length));
    return PlayerItem::video(video, {}, {}, "", std::nullopt);
}

TEST(Player, standsWithinItsItem) {
    Player player([] { return 0.0; });
    EXPECT_EQ(player.length(), 0);
    player.run(1);
    EXPECT_EQ(player.rate(), 0) << "there is nothing to run";
    player.load(item(10), 12);
    EXPECT_EQ(player.place(), 10);
    player.stand(-3);
    EXPECT_EQ(player.place(), 0);
    player.load(item(3), 2);
    EXPECT_EQ(player.length(), 3);
    EXPECT_EQ(player.place(), 2);
    player.unload();
    EXPECT_FALSE(player.item());
    EXPECT_EQ(player.place(), 0);
}

TEST(Player, runsByTheComputersClockAndSeeksOn) {
    double now = 100;
    Player player([&] { return now; });
    player.load(item(10), 4);
    player.run(2);
    now += 1;
    EXPECT_EQ(player.place(), 6);
    player.seek(1);
    EXPECT_EQ(player.rate(), 2) << "it runs on from there";
    now += 0.5;
    EXPECT_EQ(player.place(), 2);
    player.run(-1);
    now += 5;
    EXPECT_EQ(player.place(), 0) << "it does not leave the item";
    player.skim(3);
    EXPECT_EQ(player.rate(), 0);
    player.seek(5);
    EXPECT_EQ(player.rate(), 0);
    EXPECT_EQ(player.place(), 5);
}

TEST(Player, whatIsTooFastToBeHeardGoesByTheComputersClock) {
    double now = 100;
    Player player([&] { return now; }, [] { return std::make_unique<FakeOutput>(); });
    player.load(item(20), 4);
    for (const double rate : {2.5, -2.5}) {
        player.stand(10);
        player.run(rate);
        now += 2;
        EXPECT_EQ(player.place(), 10 + 2 * rate);
    }
}

TEST(Player, aRemixTakesThePlanAndKeepsTheRest) {
    Player player([] { return 0.0; });
    player.refresh(Plan());
    player.remix(item(3));
    EXPECT_FALSE(player.item());
    player.load(item(10), 4);
    auto other = item(10);
    auto plan = *other.composition.box->plan();
    plan.frame = {100, 50};
    other.composition.box->replace(plan);
    player.remix(std::move(other));
    EXPECT_EQ(player.item()->composition.box->plan()->frame, (Size{100, 50}));
    EXPECT_EQ(player.place(), 4);
}

}
