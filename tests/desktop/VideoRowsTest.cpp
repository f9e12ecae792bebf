#include "app/desktop/inspector/VideoRows.h"
#include "tests/desktop/InspectedVideo.h"

using namespace murbo;

TEST(VideoRows, setLevelsInDecibels) {
    InspectedVideo video;
    EXPECT_EQ(video.at("level.music").toDouble(), 0);
    video.inspection.set("level.music", -6);
    EXPECT_NEAR(*video.look().mix->music, 0.501, 0.001);
    EXPECT_TRUE(video.changed("level.music"));
    EXPECT_EQ(video.step(), "Change Levels");
    video.inspection.set("level.music", -60);
    EXPECT_EQ(video.look().mix->music, 0) << "the bottom is silence";
    EXPECT_EQ(video.at("level.music").toDouble(), -60);
    video.inspection.reset("level.music");
    EXPECT_EQ(video.look().mix->music, std::nullopt);
    EXPECT_FALSE(video.changed("level.music"));
    video.inspection.set("level.duck", 20);
    EXPECT_NEAR(*video.look().mix->duck, 0.2, 1e-9);
}
