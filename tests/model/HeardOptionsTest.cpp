#include "core/model/HeardOptions.h"
#include "core/model/Monitoring.h"
#include "core/model/Muted.h"
#include "core/model/edits/PlayerChange.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Two cuts, the first muted; two sounds, the first muted; a song; the music lane off.
Video mixed() {
    Video video;
    video.cuts.edit() = {{.muted = true}, {}};
    auto& look = video.look.emplace();
    look.sounds.edit() = {{.volume = 0.3, .muted = true}, {.volume = 0.6}};
    look.music.edit() = {{.volume = 0.9}};
    look.mix.emplace().music = 0.4;
    look.mix->toggleMute(Lane::music);
    return video;
}

/// The cuts, the volumes of sounds and songs, and the levels of the lanes; with an x what is muted.
std::string told(const Video& video) {
    std::string text;
    const auto add = [&](const auto& block, double volume) {
        text += fmt::format("{}{:g} ", block.muted.value_or(false) ? "x" : "", volume);
    };
    for (const auto& cut : video.cuts) add(cut, 1);
    text += "| ";
    for (const auto& sound : video.look->sounds) add(sound, sound.volume.value_or(1));
    text += "| ";
    for (const auto& song : video.look->music) add(song, song.volume.value_or(1));
    text += "|";
    for (const auto lane : allLanes) text += fmt::format(" {:g}", video.look->mix->level(lane));
    return text + (video.look->mix->muted ? " x" : "");
}

}

TEST(HeardOptions, leavesOutWhatIsTurnedOffUnlessItIsAskedFor) {
    const std::pair<HeardOptions, const char*> cases[] = {
        {{}, "x1 1 | 0.6 | 0.9 | 1 1 1 0"},
        {{.includingMutedRows = true}, "x1 1 | 0.6 | 0.9 | 1 1 1 0.4"},
        {{.includingMutedBlocks = true}, "1 1 | 0.3 0.6 | 0.9 | 1 1 1 0"},
        {{.includingMutedRows = true, .soloed = {Lane::music}}, "x1 1 | 0.6 | 0.9 | 0 0 0 0.4"},
        {{.keepingTracks = true}, "x1 1 | x0 0.6 | 0.9 | 1 1 1 0"},
    };
    for (const auto& [options, expected] : cases) EXPECT_EQ(told(heard(mixed(), options)), expected);

    const Video bare;
    EXPECT_EQ(heard(bare, {}).look, std::nullopt);
    EXPECT_EQ(heard(bare, {.soloed = {Lane::music}}).look->mix->video, 0);
    EXPECT_TRUE(Monitoring{}.heard(Lane::music, std::nullopt));
}

TEST(HeardOptions, tellsWhatIsOff) {
    struct Case {
        void (*change)(Video&);
        Muted expected;
    };
    for (const auto& [change, expected] :
         {Case{[](Video&) {}, {}},
          Case{[](Video& v) { v.cuts.edit().emplace_back().muted = true; }, {false, true}},
          Case{[](Video& v) { v.look.emplace().sounds.edit() = {{.muted = true}}; }, {false, true}},
          Case{[](Video& v) { v.look.emplace().music.edit() = {{.muted = true}}; }, {false, true}},
          Case{[](Video& v) { v.look.emplace().mix.emplace().toggleMute(Lane::video); }, {true, false}}}) {
        Video video;
        change(video);
        EXPECT_EQ(hasMuted(video), expected);
    }
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
