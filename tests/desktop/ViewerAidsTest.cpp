#include "app/desktop/viewer/ViewerAids.h"
#include "tests/desktop/OnWindow.h"

#include <QRegularExpression>

using namespace murbo;

using ViewerAidsTest = OnWindow<WindowOfProject>;

TEST(ViewerAids, sayWhatTheAppsCoverAndThatTheFiguresAreOurs) {
    Playback player;
    const ViewerAids aids(player);
    ASSERT_GE(aids.areas().size(), 2);
    for (const auto& one : aids.areas()) {
        const auto area = one.toMap();
        EXPECT_NE(area["name"].toString(), "");
        for (const auto* side : {"left", "top", "right", "bottom"}) {
            EXPECT_GE(area[side].toDouble(), 0) << side;
            EXPECT_LT(area[side].toDouble(), 0.5) << side;
        }
    }
    EXPECT_TRUE(aids.note().contains("estimates"));
    EXPECT_TRUE(QRegularExpression("20\\d\\d-\\d\\d-\\d\\d").match(aids.note()).hasMatch());
}

TEST_F(ViewerAidsTest, areSwitchedFromTheMenuAndRemembered) {
    EXPECT_TRUE(shown->project().perform("safeAreas"));
    EXPECT_TRUE(shown->project().perform("droppedFrames"));
    Playback player;
    const ViewerAids again(player);
    EXPECT_TRUE(again.safeAreas());
    EXPECT_TRUE(again.droppedFrames());
    EXPECT_EQ(again.droppedWords(), "0 of 0 dropped");
    EXPECT_TRUE(shown->project().perform("safeAreas"));
    EXPECT_FALSE(ViewerAids(player).safeAreas());
}

TEST_F(ViewerAidsTest, theViewerFillsTheScreenAndEscapeBringsTheWindowBack) {
    shown->key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(shown->window().visibility(), QWindow::FullScreen);
    shown->key(Qt::Key_Escape);
    EXPECT_NE(shown->window().visibility(), QWindow::FullScreen);
}
