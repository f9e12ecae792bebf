#include "app/editor/commands/PickWords.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(PickWords, sayWhereEachBlockIsAndWhatItIs) {
    TwoCuts lines;
    lines(R"(["addOverlay","stock.hearts",12.25])", R"(["addOverlay","stock.layout.wide",2])");
    lines.editor().change("More", [&](Project& project) {
        auto& video = project.videos.edit()[0];
        video.look->shots.edit().push_back({.source = lines.rec(), .at = 45, .layout = Shot::Layout::face});
        video.look->shots.edit().push_back({.source = lines.cam(), .at = 5, .layout = Shot::Layout::content});
        video.look->sounds.edit().push_back(
            {.file = "media/sounds/Boom 2.wav", .source = lines.rec(), .at = 21});
        video.look->music.edit().push_back({.file = "/a/Theme.mp3", .source = lines.rec(), .at = 40});
        video.cuts.edit()[1].role = "payoff";
    });
    const auto& look = lines.look();
    const auto of = [&](Pick::Kind kind, const UUID& id) {
        const std::string whole = PickWords::of(lines.editor(), {{kind, id, {}}});
        const std::string before = "In V1 “One”, these: ";
        EXPECT_TRUE(whole.starts_with(before)) << whole;
        return whole.substr(before.size());
    };
    using enum Pick::Kind;
    EXPECT_EQ(of(cut, lines.video().cuts[0].id), "cut 1 (C01.01 to C01.02)");
    EXPECT_EQ(of(cut, lines.video().cuts[1].id), "cut 2 (payoff)");
    EXPECT_EQ(of(overlay, look.overlays[0].id), "playbook stock.hearts at 0:12.25");
    EXPECT_EQ(of(shot, look.shots[0].id), "shot Wide at 0:02.00");
    EXPECT_EQ(of(shot, look.shots[1].id), "shot face at 0:15.00");
    EXPECT_EQ(of(shot, look.shots[2].id), "shot content") << "it is not shown";
    EXPECT_EQ(of(sound, look.sounds[0].id), "sound Boom 2 at 0:01.00");
    EXPECT_EQ(of(music, look.music[0].id), "song Theme at 0:10.00");
    EXPECT_EQ(of(caption, lines.line(1).id), "caption C01.02");
    EXPECT_EQ(of(caption, lines.line(2).id), "") << "it lies in no clip";
    EXPECT_EQ(of(overlay, look.shots[0].id), "");
    const auto gone = Pick{cut, UUID::make(), {}};
    EXPECT_EQ(
        PickWords::of(lines.editor(),
                      {gone, {caption, lines.line(0).id, {}}, gone, {cut, lines.video().cuts[0].id, {}}}),
        "In V1 “One”, these: caption C01.01, cut 1 (C01.01 to C01.02)");
    lines(R"(["delete","V1"])");
    EXPECT_EQ(PickWords::of(lines.editor(), {gone}), "");
}
