#include "app/desktop/viewer/ViewerAids.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using ViewerAidsTest = OnWindow<WindowOfProject>;

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
