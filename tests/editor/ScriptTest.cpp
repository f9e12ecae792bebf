#include "tests/editor/Lines.h"

using namespace murbo;
using testing::StartsWith;

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
