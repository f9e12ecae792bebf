// What keys do with the blocks of app/desktop/timeline/TimelineWalk.cpp.
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using TimelineWalkTest = OnWindow<WindowOfProject>;

TEST_F(TimelineWalkTest, aBlockIsPickedBroughtIntoViewAndGoneTo) {
    shown->putIn(0);
    shown->putIn(1);
    shown->settle();
    auto* timeline = shown->item<TimelineView>();
    timeline->walk("first", false);
    timeline->walk("next", true);
    EXPECT_EQ(TimelinePicks::all(shown->editor()).size(), 2);
    timeline->zoomRound(40, 0);
    timeline->walk("last", false);
    EXPECT_GT(timeline->scroll(), 0) << "what is picked is in view";
    timeline->walk("no such way", false);
    EXPECT_EQ(shown->editor().picked()->id, shown->editor().video()->cuts[1].id);
    timeline->goToPick();
    EXPECT_NEAR(shown->editor().playback.time(), 4, 0.02);
}
