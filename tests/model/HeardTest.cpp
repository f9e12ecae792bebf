#include "core/model/Heard.h"
#include "core/model/Monitoring.h"
#include "core/model/PlayerChange.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Two cuts, the first muted; two sounds, the first muted; a song; the music lane off.
Video mixed() {
    Video video;
    video.cuts = std::vector<Cut>(2);
    video.cuts.edit()[0].muted = true;
    auto& look = video.look.emplace();
    look.sounds = std::vector<SoundCue>(2);
    look.sounds.edit()[0].muted = true;
    look.music = std::vector<SoundCue>(1);
    look.mix.emplace().music = 0.4;
    look.mix->toggleMute(Lane::music);
    return video;
}

}

TEST(Heard, leavesOutWhatIsTurnedOff) {
    const auto video = mixed();
    const auto result = heard(video, {});
    EXPECT_EQ(result.look->sounds.size(), 1u);
    EXPECT_EQ(result.look->sounds[0], video.look->sounds[1]);
    EXPECT_EQ(result.look->music, video.look->music);
    EXPECT_EQ(result.look->mix->music, 0);
    EXPECT_EQ(result.look->mix->video, std::nullopt);
    EXPECT_EQ(result.look->mix->muted, std::nullopt);
    EXPECT_EQ(result.cuts, video.cuts);
}

TEST(Heard, includesWhatIsAskedFor) {
    const auto video = mixed();
    const auto rows = heard(video, {.includingMutedRows = true});
    EXPECT_EQ(rows.look->mix->music, 0.4);
    EXPECT_EQ(rows.look->sounds.size(), 1u);
    const auto blocks = heard(video, {.includingMutedBlocks = true});
    EXPECT_EQ(blocks.look->mix->music, 0);
    EXPECT_EQ(blocks.cuts[0].muted, std::nullopt);
    EXPECT_EQ(blocks.look->sounds[0].muted, std::nullopt);
    EXPECT_EQ(hasMuted(heard(video, {.includingMutedRows = true, .includingMutedBlocks = true})), Muted{});
}

TEST(Heard, keepsAPlayersTracks) {
    const auto result = heard(mixed(), {.keepingTracks = true});
    EXPECT_EQ(result.look->sounds.size(), 2u);
    EXPECT_EQ(result.look->sounds[0].volume, 0);
    EXPECT_EQ(result.look->sounds[1].volume, std::nullopt);
    EXPECT_NE(playerChange(result, nullptr), PlayerChange::redraw);
}

TEST(Heard, soloOverridesTheMix) {
    auto video = mixed();
    const HeardOptions solo{.includingMutedRows = true, .soloed = {Lane::music}};
    const auto result = heard(video, solo);
    for (const auto lane : allLanes) EXPECT_EQ(result.look->mix->level(lane), lane == Lane::music ? 0.4 : 0);
    video.look.reset();
    EXPECT_EQ(heard(video, solo).look->mix->video, 0);
    EXPECT_EQ(heard(video, {}).look, std::nullopt);
    EXPECT_TRUE(Monitoring{{Lane::music}}.heard(Lane::music, mixed().look->mix));
    EXPECT_FALSE(Monitoring{}.heard(Lane::music, mixed().look->mix));
    EXPECT_TRUE(Monitoring{}.heard(Lane::music, std::nullopt));
}

TEST(Heard, tellsWhatIsOff) {
    Video video;
    EXPECT_EQ(hasMuted(video), Muted{});
    video.cuts.edit().emplace_back().muted = true;
    EXPECT_EQ(hasMuted(video), (Muted{.rows = false, .blocks = true}));
    video = Video();
    video.look.emplace().music.edit().emplace_back().muted = true;
    video.look->mix.emplace().toggleMute(Lane::video);
    EXPECT_EQ(hasMuted(video), (Muted{.rows = true, .blocks = true}));
}

TEST(PlayerChange, isTheCheapestThatWillDo) {
    using enum PlayerChange;
    struct Case {
        const char* what;
        PlayerChange expected;
        void (*change)(Video&);
    };
    const Case cases[] = {
        {"nothing", redraw, [](Video&) {}},
        {"title", redraw, [](Video& v) { v.title = "new"; }},
        {"run", redraw, [](Video& v) { v.runs.emplace(); }},
        {"zoom", redraw, [](Video& v) { v.look->shots.edit()[0].zoom = 2; }},
        {"captions off", redraw, [](Video& v) { v.look->captions.on = false; }},
        {"caption", redraw, [](Video& v) { v.look->captions.lines.edit().emplace_back(); }},
        {"style", redraw, [](Video& v) { v.look->captions.style.emplace(); }},
        {"generator's values", redraw, [](Video& v) { v.cuts.edit()[1].generator->values.emplace(); }},
        {"generator's version", rebuild, [](Video& v) { v.cuts.edit()[1].generator->version = 9; }},
        {"mute a cut", remix, [](Video& v) { v.cuts.edit()[1].muted = true; }},
        {"volume", remix, [](Video& v) { v.look->sounds.edit()[0].volume = 0.5; }},
        {"mute a song", remix, [](Video& v) { v.look->music.edit()[0].muted = true; }},
        {"level", remix, [](Video& v) { v.look->mix->video = 0.5; }},
        {"move a sound", rebuild, [](Video& v) { v.look->sounds.edit()[0].at = 5; }},
        {"remove a song", rebuild, [](Video& v) { v.look->music = {}; }},
        {"overlay's values", rebuild, [](Video& v) { v.look->overlays.edit()[0].values.emplace(); }},
        {"trim", rebuild, [](Video& v) { v.cuts.edit()[0].end = 3; }},
        {"aspect", rebuild, [](Video& v) { v.aspect = Video::Aspect::square; }},
        {"another video", rebuild, [](Video& v) { v.id = UUID::make(); }},
    };
    auto old = mixed();
    old.look->shots = std::vector<Shot>(1);
    old.look->overlays = std::vector<Overlay>(1);
    old.cuts.edit()[1].generator.emplace();
    for (const auto& [what, expected, change] : cases) {
        auto video = old;
        change(video);
        EXPECT_EQ(playerChange(video, &old), expected) << what;
    }
    EXPECT_EQ(playerChange(old, nullptr), rebuild);
    Video bare;
    auto dressed = bare;
    dressed.look.emplace();
    EXPECT_EQ(playerChange(dressed, &bare), redraw);
}
