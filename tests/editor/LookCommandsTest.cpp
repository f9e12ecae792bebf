#include "app/editor/commands/LookCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(LookCommands, aChangeIsAStepAndADragNoneYet) {
    TwoCuts lines;
    EXPECT_FALSE(lines.video().look);
    EXPECT_EQ(lines(R"(["changeLook","Hide Captions",{"captions":{"on":false,"lines":[]}}])"),
              stepped("Hide Captions"));
    EXPECT_FALSE(lines.look().captions.on);
    EXPECT_EQ(lines(R"(["dragLook",{"mix":{"music":0.5}}])"), fine);
    EXPECT_EQ(lines.look().mix->music, 0.5);
    EXPECT_FALSE(lines.look().captions.on) << "the rest stays";
    EXPECT_EQ(lines.steps(), TwoCuts::Names{"Hide Captions"});
    lines(R"(["undo"])");
    EXPECT_FALSE(lines.look().mix);
    EXPECT_FALSE(lines.look().captions.on);
}

TEST(LookCommands, withoutAVideoNothingIsChanged) {
    Lines lines;
    EXPECT_FALSE(lines.possible("changeLook"));
    EXPECT_EQ(lines(R"(["changeLook","x",{}])"), fine);
    EXPECT_EQ(lines(R"(["dragLook",{}])"), fine);
    EXPECT_FALSE(lines.editor().unfinished());
    EXPECT_EQ(lines(R"(["playheadOnSource"])"), fine);
    EXPECT_FALSE(LookCommands::momentOrRefused(lines.editor()));
    EXPECT_EQ(lines.editor().toast(), "Open a video with cuts first");
}

TEST(LookCommands, aMomentOfTheVideoIsOneOfItsFootage) {
    TwoCuts lines;
    lines(R"(["seek",12.5])");
    EXPECT_EQ(lines(R"(["playheadOnSource"])"),
              gave(R"({"source":")" + lines.rec().text() + R"(","at":42.5})"));
    const auto early = LookCommands::momentAt(lines.editor(), 3.0);
    ASSERT_TRUE(early);
    EXPECT_EQ(early->at, 23) << "the time asked for, not the playhead's";
    EXPECT_EQ(LookCommands::momentOrRefused(lines.editor())->at, 42.5);
    EXPECT_FALSE(lines.editor().toast());
}

TEST(LookCommands, aKeptFileStandsInAFolderOfTheMedia) {
    TwoCuts lines;
    const auto file = lines.folder.file("cat.png", "meow").string();
    const auto keep = [&](const std::string& in) {
        return lines(R"(["keepMedia",")" + file + "\",\"" + in + "\"]");
    };
    EXPECT_EQ(keep("pictures"), gave("\"media/pictures/cat.png\""));
    EXPECT_EQ(contentsOf(lines.package() / "media/pictures/cat.png"), "meow");
    std::ofstream(file) << "hiss";
    EXPECT_EQ(keep("pictures"), gave("\"media/pictures/cat 2.png\"")) << "as long, but another";
    // Files may be alike for long.
    std::string long1(200'000, 'a');
    std::ofstream(file) << long1;
    EXPECT_EQ(keep("pictures"), gave("\"media/pictures/cat 3.png\""));
    EXPECT_EQ(keep("pictures"), gave("\"media/pictures/cat 3.png\"")) << "it is there";
    long1.back() = 'b';
    std::ofstream(file) << long1;
    EXPECT_EQ(keep("pictures"), gave("\"media/pictures/cat 4.png\""));
    for (const auto* out : {"../pictures", "a/b", "..", ".hidden"})
        EXPECT_EQ(keep(out), refused("“in” is not right: the name of a folder is expected.")) << out;
}

TEST(LookCommands, framingIsDraggedOnItsSourceAlone) {
    TwoCuts lines;
    lines(R"(["dragFraming","cam.mp4",{"split":0.3}])");
    lines(R"(["dragFraming","cam.mp4",{"face":{"x":0.1,"y":0.2,"w":0.3,"h":0.4}}])");
    const auto& sources = lines.project().sources;
    EXPECT_EQ(sources[1].framing, (Framing{.face = {0.1, 0.2, 0.3, 0.4}, .split = 0.3}));
    EXPECT_FALSE(sources[0].framing);
    EXPECT_EQ(lines(R"(["closeDrag"])"), stepped("Drag"));
    lines(R"(["undo"])");
    EXPECT_FALSE(lines.project().sources[1].framing);
}
