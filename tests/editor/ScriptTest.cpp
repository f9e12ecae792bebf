#include "tests/editor/Lines.h"

using namespace murbo;
using testing::StartsWith;

TEST(Script, oneUndoTakesBackANewVideoAndItsCuts) {
    Lines lines;
    const auto before = lines.project();
    lines(R"(["set","heldSource","rec.mp4"])", R"(["set","range",[10,12]])", R"(["insertAtPlayhead"])");
    ASSERT_EQ(lines.project().videos.size(), 1);
    EXPECT_EQ(lines.project().videos[0].cuts[0].length(), 2);
    EXPECT_FALSE(lines.editor().range());
    lines(R"(["undo"])");
    EXPECT_EQ(lines.project(), before);
}

TEST(Script, oneDragIsOneStepAndOneSave) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])", R"(["addToEnd"])");
    const auto onDisk = contentsOf(lines.package() / "project.json");
    EXPECT_EQ(lines(R"(["trim","cut 1",true,22])"), fine);
    EXPECT_EQ(lines(R"(["trim","cut 1",true,23])"), fine);
    EXPECT_EQ(contentsOf(lines.package() / "project.json"), onDisk) << "a drag is not saved on its way";
    EXPECT_EQ(lines(R"(["endTrim","cut 1",true,"Trim"])"), stepped("Trim"));
    EXPECT_NE(contentsOf(lines.package() / "project.json"), onDisk);
    lines(R"(["undo"])");
    EXPECT_EQ(lines.project().videos[0].cuts[0].start, 20);
}

TEST(Script, aDragComesToRestByItselfAndNoLineNamesIt) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])", R"(["addToEnd"])", R"(["trim","cut 1",true,22])");
    QObject::connect(&lines.editor(), &Editor::stepMade,
                     [](const QString&, bool byTimer) { EXPECT_TRUE(byTimer); });
    EXPECT_EQ(lines(R"(["endDragSoon","Trim"])"), fine);
    EXPECT_EQ(lines(R"(["wait",0.4])"), fine);
    EXPECT_EQ(lines.editor().unfinished(), "Drag");
    EXPECT_EQ(lines(R"(["wait",0.5])"), fine);
    EXPECT_EQ(lines.editor().history().undoName(), "Trim");
}

TEST(Script, goesOnAfterWhatCanNotBeRead) {
    Lines lines;
    const auto before = contentsOf(lines.package() / "project.json");
    for (const std::string line :
         {"{", "[]", "[1]", "3", "null", "\xff", "[\"nothing\"]", R"(["seek"])", R"(["seek","x"])",
          R"(["seek",1,2])", R"(["rate",["C09"],1])", R"(["rename","V1",""])", R"(["set","no",1])",
          R"(["cut","sideways"])", R"(["wait",1e308])", R"(["seek",NaN])",
          R"(["changeLook","x",{"nothing":1}])", R"(["trim","cut 1",true,1])"})
        EXPECT_THAT(lines(line), StartsWith(R"({"ok":false,"error":")")) << line;
    EXPECT_EQ(lines("   \t"), "");
    EXPECT_EQ(lines(R"(["seek",1e308])"), fine);
    EXPECT_EQ(contentsOf(lines.package() / "project.json"), before);
}
