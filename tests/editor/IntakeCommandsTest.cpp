#include "app/editor/commands/IntakeCommands.h"
#include "tests/MadeMedia.h"
#include "tests/editor/Lines.h"

using namespace murbo;

TEST(IntakeCommands, newSourcesComeIntoViewAsOneStep) {
    Lines lines;
    auto& editor = lines.editor();
    const auto there = lines.folder.file("day/a.mp4");
    IntakeCommands::add(editor, {{there, 30}, {"/nowhere/b.mp4", 700}}, "", {});
    const auto& project = lines.project();
    ASSERT_EQ(project.sources.size(), 4u);
    EXPECT_EQ(editor.history().undoName(), "Add Footage");
    EXPECT_EQ(editor.sidebar(), (SidebarPick{Collection::sources, project.sources[2].id}));
    EXPECT_FALSE(editor.missing().contains(project.sources[2].id));
    EXPECT_TRUE(editor.missing().contains(project.sources[3].id));
    EXPECT_EQ(project.clips.size(), 4u) << "a long recording is no clip";
    EXPECT_EQ(project.sources[2].kind, Source::Kind::file);
    IntakeCommands::add(editor, {{there, 30}}, "Second Day", {});
    EXPECT_EQ(project.groups.back().name, "Second Day");
    editor.undo();
    editor.undo();
    EXPECT_EQ(lines.project(), ProjectPackage::read(lines.package()));
    EXPECT_EQ(project.sources.size(), 2u);
}

TEST(IntakeCommands, aStreamHasAClipRoundEachMarker) {
    Lines lines;
    IntakeCommands::addStream(lines.editor(), {"/nowhere/live.mp4", 3600},
                              {"live.csv", "0:10:00,a\n0:50:00,b\n", "a note"}, {});
    const auto& source = lines.project().sources.back();
    EXPECT_EQ(lines.editor().history().undoName(), "Add Stream");
    EXPECT_EQ(lines.editor().sidebar().source, source.id);
    EXPECT_EQ(source.kind, Source::Kind::stream);
    EXPECT_EQ(source.note, "a note");
    EXPECT_EQ(lines.project().clips.size(), 5u);
}

TEST(IntakeCommands, markersThatAreGivenCountBeforeThoseThatLieThere) {
    MURBO_NEEDS_FFMPEG();
    Lines lines;
    const auto recording = made::file("live.mp4", "-f lavfi -i color=s=64x36:r=5:d=2").string();
    std::ofstream(made::folder() / "live.csv") << "0:01";
    const auto own = lines.folder.file("own.csv", "0:01").string();
    for (const auto& [given, name] :
         {std::pair<std::string, std::string>{"", "live.csv"}, {",\"" + own + "\"", "own.csv"}}) {
        lines("[\"addStream\",\"" + recording + "\"" + given + "]");
        EXPECT_EQ(lines.project().sources.back().stream->markersName, name);
    }
}
