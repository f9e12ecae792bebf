#include "app/desktop/inspector/SoundRows.h"
#include "tests/desktop/InspectedVideo.h"

using namespace murbo;

TEST(SoundRows, setASongInItsFileAndItsLevel) {
    InspectedVideo video;
    const auto song = [&]() -> const SoundCue& { return video.look().music[0]; };
    video.pick(Pick::Kind::music, song().id);
    EXPECT_EQ(video.inspection.title(), "song");
    EXPECT_NEAR(video.at("level").toDouble(), -6, 0.1);
    video.inspection.set("level", 40);
    EXPECT_EQ(song().volume, 1) << "no louder than the file";
    video.inspection.reset("level");
    EXPECT_EQ(song().volume, std::nullopt);
    video.inspection.set("skip", 1.5);
    EXPECT_EQ(song().skip, 1.5);
    video.inspection.set("skip", 0);
    EXPECT_EQ(song().skip, std::nullopt);
    video.inspection.set("mute", true);
    EXPECT_EQ(song().muted, true);
    EXPECT_EQ(video.step(), "Mute");
}
