#include "core/model/edits/PlayerChange.h"

#include <gtest/gtest.h>

using namespace murbo;

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
    Video old;
    old.cuts = std::vector<Cut>(2);
    old.look.emplace().sounds = std::vector<SoundCue>(2);
    old.look->music = std::vector<SoundCue>(1);
    old.look->mix.emplace();
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
