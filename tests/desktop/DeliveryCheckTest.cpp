#include "app/desktop/exports/DeliveryCheck.h"
#include "app/editor/commands/CutCommands.h"
#include "tests/desktop/TimelineVideo.h"

#include <QTest>

using namespace murbo;

TEST(DeliveryCheck, followsTheVideoAndMendsAnEdge) {
    TimelineVideo of;
    DeliveryCheck check(of.editor, {});
    check.begin();
    const auto checked = [&] { return QTest::qWaitFor([&] { return check.state() != "checking…"; }, 20000); };
    ASSERT_TRUE(checked());
    EXPECT_EQ(check.state(), "checked just now");
    EXPECT_TRUE(check.allGood().startsWith("All cuts have their files")) << check.allGood().toStdString();

    CutCommands::trim(of.editor, of.cut(0).id, false, 12);
    of.editor.closeDrag("Trim End");
    ASSERT_TRUE(checked());
    ASSERT_EQ(check.findings().size(), 1);
    EXPECT_EQ(check.state(), "1 to look at");
    of.editor.setFocus(Viewer::source);
    check.show(0);
    EXPECT_EQ(of.editor.focus(), Viewer::video);
    EXPECT_EQ(of.editor.picked()->id, of.cut(0).id);
    EXPECT_EQ(of.editor.playback.time(), 1.5);
    check.fix(0);
    EXPECT_EQ(of.cut(0).end, 13);
    EXPECT_EQ(of.editor.history().undoName(), "Trim End");
    EXPECT_FALSE(of.editor.edge() || of.editor.edgeAfter());
    ASSERT_TRUE(checked());
    EXPECT_TRUE(check.findings().isEmpty());
    QTest::qWait(100);
    EXPECT_EQ(of.editor.playback.rate(), 0) << "nobody watches the edit through a sheet";
    check.fix(5);
    check.show(-1);
    check.end();
}
