#include "app/editor/commands/SoundCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

/// Two cuts, with the sound "boom.wav" at 1 s and the song "theme.wav" at 12 s.
class TwoSounds : public TwoCuts {
public:
    TwoSounds() {
        EXPECT_EQ(add("boom.wav", "hits", "false", 1), stepped("Add Sound"));
        EXPECT_EQ(add("theme.wav", "", "true", 12), stepped("Add Song"));
    }
    std::string add(const char* name, const std::string& from, const std::string& music, double at) {
        const auto file = folder.file(name, name).string();
        return (*this)("[\"addSound\",\"" + file + "\",\"" + from + "\"," + music + "," + std::to_string(at) +
                       "]");
    }
    SoundCue sound() { return look().sounds[0]; }
    SoundCue song() { return look().music[0]; }
};

}

TEST(SoundCommands, soundsAndSongsHaveListsAndFoldersOfTheirOwn) {
    TwoSounds lines;
    ASSERT_EQ(lines.look().sounds.size(), 1u);
    ASSERT_EQ(lines.look().music.size(), 1u);
    EXPECT_EQ(lines.sound(), (SoundCue{.id = lines.sound().id,
                                       .file = "media/sounds/boom.wav",
                                       .source = lines.rec(),
                                       .at = 21,
                                       .from = "hits"}));
    EXPECT_EQ(lines.song().file, "media/music/theme.wav");
    EXPECT_EQ(lines.song().at, 42);
    EXPECT_EQ(lines.editor().picked(), (Pick{Pick::Kind::music, lines.song().id, {}}));
    lines.add("bang.wav", "hits", "false", 3);
    EXPECT_EQ(lines.editor().picked(), (Pick{Pick::Kind::sound, lines.look().sounds[1].id, {}}));
    EXPECT_EQ(contentsOf(lines.package() / "media/sounds/bang.wav"), "bang.wav");
}

TEST(SoundCommands, withoutAFileOrCutsNothingIsAdded) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["addSound","/nowhere/x.wav","",false])"),
              did("x.wav could not be copied into the project"));
    EXPECT_FALSE(lines.video().look);
    lines(R"(["delete","V1"])");
    EXPECT_FALSE(lines.possible("addSound"));
    EXPECT_EQ(lines(R"(["addSound","/nowhere/x.wav","",false])"), did("Open a video with cuts first"));
}

TEST(SoundCommands, aDragMovesOrShortensTheOne) {
    TwoSounds lines;
    const auto song = lines.song();
    EXPECT_EQ(lines(R"(["dragSound","sound 1",11])"), fine);
    EXPECT_EQ(lines.sound().at, 41);
    EXPECT_FALSE(lines.sound().length);
    lines(R"(["dragSound","sound 1",null,0.5])");
    EXPECT_EQ(lines.sound().at, 41);
    EXPECT_EQ(lines.sound().length, 0.5);
    EXPECT_EQ(lines.song(), song);
    lines(R"(["dragSound","song 1",1,4])");
    EXPECT_EQ(lines.song().at, 21);
    EXPECT_EQ(lines.song().length, 4);
    EXPECT_EQ(lines(R"(["changeSound","song 1","Softer",{"volume":0.3}])"), stepped("Softer"));
    EXPECT_EQ(lines.song().volume, 0.3);
    EXPECT_FALSE(lines.sound().volume);
    EXPECT_EQ(lines(R"(["removeSound","song 1"])"), stepped("Remove Sound"));
    EXPECT_TRUE(lines.look().music.empty() && lines.look().sounds.size() == 1);
    lines(R"(["removeSound","sound 1"])");
    EXPECT_TRUE(lines.look().sounds.empty());
}

TEST(SoundCommands, mutingIsForAllUnlessAllAreMuted) {
    TwoSounds lines;
    const auto muted = [&] { return std::pair(lines.sound().muted, lines.song().muted); };
    using Both = std::pair<std::optional<bool>, std::optional<bool>>;
    EXPECT_EQ(lines(R"(["toggleMuteSounds",["song 1"]])"), stepped("Mute"));
    EXPECT_EQ(muted(), Both({}, true));
    EXPECT_EQ(lines(R"(["toggleMuteSounds",["sound 1","song 1"]])"), stepped("Mute")) << "one could be heard";
    EXPECT_EQ(muted(), Both(true, true));
    EXPECT_EQ(lines(R"(["toggleMuteSounds",["sound 1","song 1"]])"), stepped("Unmute"));
    EXPECT_EQ(muted(), Both({}, {}));
    EXPECT_EQ(lines(R"(["toggleMuteSounds",[]])"), fine);
}

TEST(SoundCommands, levelsKeepWhatIsNotNamed) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["setMix",{"music":0.5,"muted":["sounds"]}])"), stepped("Change Levels"));
    EXPECT_EQ(lines(R"(["setMix",{"duck":0.2,"muted":[]}])"), stepped("Change Levels"));
    EXPECT_EQ(lines.look().mix, (Mix{.music = 0.5, .duck = 0.2})) << "no lane off is no list";
    EXPECT_EQ(lines(R"(["setMix",{"duck":0.2}])"), fine);
}
