#include "platform/media/MediaFile.h"
#include "tests/media/Made.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::made;

TEST(Facts, countsTracksAndTurnsAndAspects) {
    MURBO_NEEDS_FFMPEG();
    const auto tracks = factsOf(
        "tracks.mkv", pattern + "-f lavfi -i sine=440:d=4 -map 1 -map 0 -map 2 " + x264 + "-c:a flac");
    EXPECT_EQ(tracks.sound->tracks, 2);
    EXPECT_FALSE(factsOf("only.m4a", "-f lavfi -i sine=d=2 -c:a aac").picture);
    EXPECT_FALSE(factsOf("mute.mkv", "-f lavfi -i testsrc=d=1 " + x264).sound);

    const auto upright = made::file("upright.mp4", pattern + x264);
    // The program counts its degrees the other way round.
    const std::pair<int, int> turns[] = {{0, 0}, {90, 3}, {180, 2}, {270, 1}, {45, 0}};
    for (const auto& [degrees, quarters] : turns) {
        const auto facts = factsOf(
            ("turned" + std::to_string(degrees) + ".mp4").c_str(),
            "-i " + made::quoted(upright) + " -c copy -metadata:s:v rotate=" + std::to_string(degrees));
        EXPECT_EQ(facts.picture->quarterTurns, quarters) << degrees;
        EXPECT_EQ(facts.picture->size, quarters % 2 ? (Size{180, 320}) : (Size{320, 180})) << degrees;
    }
    EXPECT_EQ(factsOf("wide.mp4", pattern + x264 + "-vf setsar=4/3").picture->size.height, 180);
    EXPECT_NEAR(factsOf("wide.mp4", "").picture->size.width, 320 * 4 / 3.0, 0.5);
}

TEST(Facts, tellsTheRateThatAFileWasMadeAt) {
    MURBO_NEEDS_FFMPEG();
    const auto rate = [](const char* name, const std::string& arguments) {
        return *factsOf(name, arguments).picture;
    };
    EXPECT_NEAR(rate("ntsc.mp4", "-f lavfi -i testsrc=r=30000/1001:d=2 " + x264).nominalRate, 29.97, 0.001);
    const auto film = rate("film.mkv", "-f lavfi -i testsrc=r=24000/1001:d=2 " + x264);
    EXPECT_NEAR(film.nominalRate, 23.976, 0.001);
    EXPECT_DOUBLE_EQ(film.grid.spacing, 1001 / 24000.0);
    const auto ntsc60 = rate("ntsc60.mkv", "-f lavfi -i testsrc=r=60000/1001:d=2 " + x264);
    EXPECT_DOUBLE_EQ(ntsc60.grid.spacing, 1001 / 60000.0) << "which Matroska writes in whole nanoseconds";
    EXPECT_EQ(rate("fast.mp4", "-f lavfi -i testsrc=r=120:d=1 " + x264).nominalRate, 120);
    // A phone's pictures, 33.3 ms apart but for a few: its header says 120. And 25 ms, which is no usual
    // rate.
    for (const auto& [name, ticks, expected] : {std::tuple{"phone.mp4", "20", 30}, {"odd.mp4", "15", 40}}) {
        const auto phone = rate(
            name, std::string("-f lavfi -i testsrc2=s=64x36:r=30:d=3 -vf settb=1/600,setpts='N*") + ticks +
                      "+5*eq(mod(N\\,20)\\,7)' -fps_mode passthrough "
                      "-enc_time_base 1/600 -video_track_timescale 600 -bf 0 " +
                      x264);
        EXPECT_EQ(phone.nominalRate, expected);
    }
    // Times on a coarse clock that no rate fits.
    const auto uneven = rate("shaken.mp4",
                             "-f lavfi -i testsrc=r=30:d=8 -vf settb=1/1000,setpts='N*33.3+13*random(1)' "
                             "-fps_mode vfr -enc_time_base 1/1000 -video_track_timescale 1000 " +
                                 x264);
    EXPECT_GT(uneven.nominalRate, 20);
    EXPECT_LT(uneven.nominalRate, 61);
    EXPECT_EQ(uneven.grid.spacing, 0) << "times that follow no rate stay as they are";
}
