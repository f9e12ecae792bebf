#include "tests/editor/Lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

struct Exchange {
    const char* line;
    const char* answer;
};

void expectAll(Lines& lines, const std::vector<Exchange>& exchanges) {
    for (const auto& [line, answer] : exchanges) EXPECT_EQ(lines(line), answer) << line;
}

}

TEST(Script, answersWithStepsToastsAndValues) {
    Lines lines;
    expectAll(lines,
              {
                  {R"(["addToEnd"])", R"({"ok":true,"toast":"Pick a clip in the browser first"})"},
                  {R"(["set","heldClip","C01"])", R"({"ok":true})"},
                  {R"(["addToEnd"])",
                   R"({"ok":true,"toast":"Added to the end of Untitled Video","step":"Add Clip"})"},
                  {R"(["set","pickedClips",["C02","C03"]])", R"({"ok":true})"},
                  {R"(["addToEnd"])",
                   R"({"ok":true,"toast":"Added to the end of Untitled Video","step":"Add Clips"})"},
                  {R"(["seek",5])", R"({"ok":true})"},
                  {R"(["splitAtPlayhead"])", R"({"ok":true,"step":"Split"})"},
                  {R"(["splitAtPlayhead"])", R"({"ok":true,"toast":"Too near an edit to split"})"},
                  {R"(["cut","face"])", R"({"ok":true,"step":"Cut to Face"})"},
                  {R"(["punch"])", R"({"ok":true,"step":"Punch In"})"},
                  {R"(["punch"])", R"({"ok":true,"step":"Punch Out"})"},
                  {R"(["rename","V1","The Fall"])", R"({"ok":true,"step":"Rename Video"})"},
                  {R"(["rename","V1","The Fall"])", R"({"ok":true})"},
                  {R"(["undo"])", R"({"ok":true,"toast":"Undid Rename Video"})"},
                  {R"(["redo"])", R"({"ok":true,"toast":"Redid Rename Video"})"},
                  {R"(["delete","V1"])",
                   R"({"ok":true,"toast":"Deleted The Fall. Undo brings it back","step":"Delete Video"})"},
                  {R"(["timecode","frames",61.5,30])", R"({"ok":true,"value":"00:01:01:15"})"},
                  {R"(["bind","markStart","j"])", R"({"ok":true,"value":"backward"})"},
                  {R"(["keyOf","backward"])", R"({"ok":true,"value":"i"})"},
                  {R"(["key","f"])", R"({"ok":true,"step":"Favourite","value":"favourite"})"},
                  {R"(["key","ESC"])", R"({"ok":true})"},
              });
}

TEST(Script, oneUndoTakesBackANewVideoAndItsCuts) {
    Lines lines;
    const auto before = lines.project();
    lines(R"(["set","heldSource","rec.mp4"])");
    lines(R"(["set","range",[10,12]])");
    lines(R"(["insertAtPlayhead"])");
    ASSERT_EQ(lines.project().videos.size(), 1);
    EXPECT_EQ(lines.project().videos[0].cuts[0].length(), 2);
    EXPECT_FALSE(lines.editor().range());
    lines(R"(["undo"])");
    EXPECT_EQ(lines.project(), before);
}

TEST(Script, readsWhatTheSessionShows) {
    Lines lines;
    lines(R"(["newVideo","9:16","One"])");
    lines(R"(["set","pickedClips",["C02","C01"]])");
    lines(R"(["addToEnd"])");
    const auto state = lines(R"(["state"])");
    EXPECT_THAT(state, HasSubstr(R"("pickedClips":["C02","C01"])"));
    EXPECT_THAT(state, HasSubstr(R"("openVideo":"V1")"));
    EXPECT_THAT(state, HasSubstr(R"("undo":["Add Clips","New Video"])"));
    EXPECT_THAT(state, HasSubstr(R"("span":[0,20])"));
    EXPECT_THAT(state, testing::Not(HasSubstr("heldClip")));
    EXPECT_EQ(lines(R"(["set","picked",["cut","cut 1"]])"), fine);
    const std::string words = "In V1 “One”, these: cut 1 (C02.01 to C02.02)";
    EXPECT_EQ(lines(R"(["picksInWords"])"), R"({"ok":true,"value":")" + words + "\"}");
}

TEST(Script, oneDragIsOneStepAndOneSave) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])");
    lines(R"(["addToEnd"])");
    const auto onDisk = contentsOf(lines.package() / "project.json");
    EXPECT_EQ(lines(R"(["trim","cut 1",true,22])"), fine);
    EXPECT_EQ(lines(R"(["trim","cut 1",true,23])"), fine);
    EXPECT_EQ(contentsOf(lines.package() / "project.json"), onDisk) << "a drag is not saved on its way";
    EXPECT_EQ(lines(R"(["endTrim","cut 1",true,"Trim"])"), R"({"ok":true,"step":"Trim"})");
    EXPECT_NE(contentsOf(lines.package() / "project.json"), onDisk);
    lines(R"(["undo"])");
    EXPECT_EQ(lines.project().videos[0].cuts[0].start, 20);
}

TEST(Script, aDragComesToRestByItselfAndNoLineNamesIt) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])");
    lines(R"(["addToEnd"])");
    lines(R"(["trim","cut 1",true,22])");
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

TEST(Script, keepsWhatIsHeldApart) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])");
    EXPECT_EQ(lines(R"(["dropBookmark"])"),
              R"({"ok":true,"toast":"Look through a source in the source viewer first"})");
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_EQ(lines.editor().heldClip(), lines.project().clips[0].id);
    lines(R"(["source.seek",25])");
    EXPECT_EQ(lines(R"(["dropBookmark"])"), R"({"ok":true,"step":"Add Bookmark"})");
    EXPECT_EQ(lines.project().bookmarks[0].at, 25);
    EXPECT_EQ(lines(R"(["dropClipMark"])"), R"({"ok":true,"toast":"Marked C01","step":"Add Clip Mark"})");
    EXPECT_EQ(lines.editor().source.time(), 25);
    EXPECT_TRUE(lines.editor().heldSource());
}
