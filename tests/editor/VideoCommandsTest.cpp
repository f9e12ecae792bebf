#include "app/editor/commands/VideoCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(VideoCommands, aNewOneIsOpenWithNothingPicked) {
    TwoCuts lines;
    lines(R"(["set","picked",["cut","cut 1"]])");
    EXPECT_EQ(lines(R"(["newVideo","1:1","Square"])"), stepped("New Video"));
    EXPECT_EQ(lines.video().title, "Square");
    EXPECT_EQ(lines.video().tag(), "V2");
    EXPECT_EQ(lines.video().aspect, Video::Aspect::square);
    EXPECT_FALSE(lines.editor().picked());
    EXPECT_EQ(lines.editor().sidebar(), (SidebarPick{Collection::videos, {}}));
    EXPECT_EQ(VideoCommands::lastAspect(), Video::Aspect::square);
    lines(R"(["undo"])");
    EXPECT_EQ(lines.video().tag(), "V1") << "the first takes its place";
}

TEST(VideoCommands, theShapeIsChangedAndKeptForTheNext) {
    TwoCuts lines;
    lines(R"(["seek",7])");
    EXPECT_EQ(lines(R"(["setAspect","4:5"])"), stepped("Change Aspect"));
    EXPECT_EQ(lines.video().aspect, Video::Aspect::portrait);
    EXPECT_EQ(VideoCommands::lastAspect(), Video::Aspect::portrait);
    EXPECT_EQ(lines.editor().playback.time(), 7) << "the playhead stays";
    lines(R"(["delete","V1"])");
    EXPECT_FALSE(lines.possible("setAspect"));
    EXPECT_EQ(lines(R"(["setAspect","16:9"])"), fine);
    EXPECT_EQ(VideoCommands::lastAspect(), Video::Aspect::portrait);
    lines(R"(["set","heldClip","C01"])", R"(["addToEnd"])");
    EXPECT_EQ(lines.video().aspect, Video::Aspect::portrait);
}

TEST(VideoCommands, aCopyIsOpenAndTheOthersStay) {
    TwoCuts lines;
    lines(R"(["newVideo","9:16","Two"])");
    EXPECT_EQ(lines(R"(["rename","V1","First"])"), stepped("Rename Video"));
    EXPECT_EQ(lines(R"(["duplicate","V1"])"), stepped("Duplicate Video"));
    const auto& videos = lines.project().videos;
    ASSERT_EQ(videos.size(), 3u);
    EXPECT_EQ(videos[0].title, "First");
    EXPECT_EQ(videos[2].title, "Two");
    EXPECT_EQ(lines.video().id, videos[1].id);
    EXPECT_EQ(lines.video().tag(), "V1a");
    EXPECT_EQ(lines.video().cuts.size(), 2u);
}

TEST(VideoCommands, deletingTheOpenOneLetsGoOfItsPicks) {
    TwoCuts lines;
    lines(R"(["newVideo","9:16","Two"])", R"(["set","openVideo","V1"])", R"(["seek",7])");
    lines(R"(["set","picked",["caption","C01.01"]])", R"(["set","morePicked",[["caption","C01.02"]]])");
    EXPECT_EQ(lines(R"(["delete","V2"])"), did("Deleted Two. Undo brings it back", "Delete Video"));
    EXPECT_TRUE(lines.editor().picked());
    EXPECT_EQ(lines.editor().playback.time(), 7);
    lines(R"(["undo"])");
    EXPECT_EQ(lines(R"(["delete","V1"])"), did("Deleted One. Undo brings it back", "Delete Video"));
    EXPECT_EQ(lines.video().title, "Two");
    EXPECT_FALSE(lines.editor().picked());
    EXPECT_TRUE(lines.editor().morePicked().empty());
    EXPECT_FALSE(lines.editor().playback.isLoaded()) << "the other has no cuts";
    EXPECT_EQ(lines(R"(["rename","V1","x"])"),
              refused("“video” is not right: “V1” is not a video of this project."));
}
