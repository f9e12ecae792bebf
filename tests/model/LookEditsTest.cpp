#include "core/model/edits/LookEdits.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Cuts of two sources, 4 s and 3 s long; an overlay from 1 s to 6 s, a sound at 2 s, a song at 3 s.
Video dressed() {
    Video video;
    const auto source = UUID::make();
    video.cuts.edit() = {{.source = source, .start = 10, .end = 14},
                         {.source = UUID::make(), .start = 30, .end = 33}};
    auto& look = video.look.emplace();
    const Overlay other{.playbook = "other", .source = source, .at = 10, .length = 7};
    look.overlays.edit() = {{.playbook = "label",
                             .version = 2,
                             .source = source,
                             .at = 11,
                             .length = 5,
                             .values = Values{{"a", "b"}}},
                            other};
    look.sounds.edit() = {{.file = "boom.wav", .source = source, .at = 12, .length = 2, .skip = 0.5}};
    look.music.edit() = {{.file = "song.mp3", .source = source, .at = 13}};
    return video;
}

}

TEST(LookEdits, theRightPartOfAnOverlayHangsOnWhatIsOnThen) {
    auto video = dressed();
    auto expected = video;
    const auto right = LookEdits::splitOverlay(video, video.look->overlays[0].id, 4.5);
    auto& overlays = expected.look->overlays.edit();
    overlays.insert(overlays.begin() + 1, overlays[0]);
    overlays[0].length = 3.5;
    overlays[1].id = right.value();
    overlays[1].source = video.cuts[1].source;
    overlays[1].at = 30.5;
    overlays[1].length = 1.5;
    EXPECT_EQ(video, expected);
    for (const double time : {0.5, 1.1, 4.4, 5.9, 6.5})
        EXPECT_FALSE(LookEdits::splitOverlay(video, video.look->overlays[0].id, time)) << time;
    EXPECT_EQ(video, expected);
}

TEST(LookEdits, bothPartsOfASoundCanBeHeard) {
    auto video = dressed(); // a sound from 2 to 4 s, a song from 3 s to the end at 7 s
    video.look->music.edit().push_back({.file = "late.mp3", .source = video.cuts[1].source, .at = 32.5});
    video.look->music.edit().push_back({.file = "gone.mp3", .source = UUID::make(), .at = 1});
    const auto before = video;
    const auto& [sound, song, late, gone] = std::tuple(video.look->sounds[0].id, video.look->music[0].id,
                                                       video.look->music[1].id, video.look->music[2].id);
    for (const auto& [cue, time] : {std::pair{sound, 1.0},
                                    {sound, 2.05},
                                    {sound, 3.95},
                                    {sound, 4.5},
                                    {song, 3.05},
                                    {song, 6.95},
                                    {song, 8.0},
                                    {late, 6.55},
                                    {gone, 1.0}})
        EXPECT_FALSE(LookEdits::splitSound(video, cue, time)) << time;
    EXPECT_EQ(video, before);
    EXPECT_TRUE(LookEdits::splitSound(video, late, 6.65));
    EXPECT_EQ(video.look->music[2].file + " " + video.look->music[3].file, "late.mp3 gone.mp3");
    EXPECT_NEAR(video.look->music[2].at, 32.65, 1e-9);
    video.look->sounds.edit()[0].length.reset();
    EXPECT_TRUE(LookEdits::splitSound(video, sound, 2.15))
        << "it may sound for as long as one that nobody knows";
    EXPECT_FALSE(video.look->sounds[1].length);
}

TEST(LookEdits, aSoundGoesOnInItsFile) {
    auto video = dressed();
    ASSERT_TRUE(LookEdits::splitSound(video, video.look->sounds[0].id, 3));
    const auto& sounds = video.look->sounds;
    EXPECT_EQ(*sounds[0].length, 1);
    EXPECT_EQ(*sounds[1].length, 1);
    EXPECT_EQ(*sounds[1].skip, 1.5);
    ASSERT_TRUE(LookEdits::splitSound(video, video.look->music[0].id, 5));
    const auto& songs = video.look->music;
    EXPECT_EQ(*songs[0].length, 2);
    EXPECT_EQ(*songs[1].skip, 2);
    EXPECT_FALSE(songs[1].length) << "a song without an end plays on";
    EXPECT_EQ(songs[1].at, 31);
    EXPECT_EQ(songs[1].source, video.cuts[1].source);
    EXPECT_FALSE(LookEdits::splitSound(video, UUID::make(), 5));
}
