#include "app/editor/commands/Named.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

/// Two cuts with one block of each sort, and a second video with a cut of its own.
class Blocks : public TwoCuts {
public:
    Blocks() {
        dress({21});
        editor().change("Two", [this](Project& project) {
            project.videos.edit().push_back({.number = 2, .title = "Two"});
            project.videos.edit()[1].cuts.edit().push_back({.source = rec(), .start = 1, .end = 2});
        });
    }
    std::optional<UUID> block(Pick::Kind kind, const std::string& name) {
        return Named::block(editor(), kind, name);
    }
};

}

TEST(Named, aPlaceCountsFromOneAndIsANumberAlone) {
    Blocks lines;
    const auto& cuts = lines.video().cuts;
    EXPECT_EQ(lines.block(Pick::Kind::cut, "cut 1"), cuts[0].id);
    EXPECT_EQ(lines.block(Pick::Kind::cut, "cut 2"), cuts[1].id);
    for (const auto* name : {"cut 0", "cut 3", "cut", "cut ", "cut2", "cut 2x", "cut  2", "cut -1", "Cut 1",
                             "shot 1", "cut 99999999999999999999999"})
        EXPECT_FALSE(lines.block(Pick::Kind::cut, name)) << name;
}

TEST(Named, soundsFindSongsAndSongsNoSounds) {
    Blocks lines;
    const auto& look = lines.look();
    EXPECT_EQ(lines.block(Pick::Kind::shot, "shot 1"), look.shots[0].id);
    EXPECT_EQ(lines.block(Pick::Kind::overlay, "overlay 1"), look.overlays[0].id);
    EXPECT_EQ(lines.block(Pick::Kind::sound, "sound 1"), look.sounds[0].id);
    EXPECT_EQ(lines.block(Pick::Kind::sound, "song 1"), look.music[0].id);
    EXPECT_EQ(lines.block(Pick::Kind::music, "song 1"), look.music[0].id);
    EXPECT_FALSE(lines.block(Pick::Kind::music, "sound 1"));
    EXPECT_FALSE(lines.block(Pick::Kind::music, look.sounds[0].id.text()));
    for (const auto& id : {look.shots[0].id, look.overlays[0].id, look.sounds[0].id, look.music[0].id})
        EXPECT_EQ(Named::anyBlock(lines.editor(), id.text()), id);
}

TEST(Named, blocksOfOtherVideosAreFoundByIdentityAlone) {
    Blocks lines;
    const auto other = lines.project().videos[1].cuts[0].id;
    EXPECT_EQ(lines.block(Pick::Kind::cut, other.text()), other);
    EXPECT_FALSE(lines.block(Pick::Kind::shot, other.text()));
    lines(R"(["set","openVideo","V2"])");
    EXPECT_EQ(lines.block(Pick::Kind::cut, "cut 1"), other);
    EXPECT_FALSE(lines.block(Pick::Kind::cut, "cut 2")) << "the other video has two";
    EXPECT_FALSE(lines.block(Pick::Kind::sound, "song 1"));
}

TEST(Named, videosClipsAndSourcesByTagOrFileNameOrIdentity) {
    Blocks lines;
    const auto& editor = lines.editor();
    const auto& project = lines.project();
    EXPECT_EQ(Named::video(editor, "V2"), project.videos[1].id);
    EXPECT_EQ(Named::video(editor, project.videos[1].id.text()), project.videos[1].id);
    EXPECT_EQ(Named::clip(editor, "C03"), project.clips[2].id);
    EXPECT_FALSE(Named::clip(editor, "c03"));
    EXPECT_EQ(Named::source(editor, "cam.mp4"), lines.cam());
    EXPECT_EQ(Named::source(editor, lines.cam().text()), lines.cam());
    EXPECT_FALSE(Named::source(editor, "/nowhere/cam.mp4"));
    EXPECT_FALSE(Named::idea(editor, "idea 1"));
    lines.editor().change("x", [](Project& changed) { changed.ideas.emplace().edit().resize(2); });
    EXPECT_EQ(Named::idea(editor, "idea 2"), (*project.ideas)[1].id);
}

TEST(Named, linesInClipsHaveTagsAndOthersTheirIdentity) {
    Blocks lines;
    const auto& editor = lines.editor();
    EXPECT_EQ(Named::line(editor, "C02.02")->line.id, lines.line(5).id);
    EXPECT_EQ(Named::line(editor, "C02.02")->source, lines.rec());
    EXPECT_FALSE(Named::line(editor, "C02.03"));
    EXPECT_EQ(Named::line(editor, lines.line(2).id.text())->line.id, lines.line(2).id) << "between the clips";
    EXPECT_EQ(Named::tag(editor, lines.line(5).id), "C02.02");
    EXPECT_EQ(Named::tag(editor, lines.line(2).id), lines.line(2).id.text());
}
