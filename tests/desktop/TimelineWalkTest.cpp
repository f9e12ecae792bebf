// What keys do with the blocks of app/desktop/timeline/TimelineWalk.cpp.
#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(TimelineWalk, aBlockIsPickedBroughtIntoViewAndGoneTo) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    for (const auto& clip : *shown.editor().project().clips) {
        shown.editor().holdClip(clip.id);
        shown.key(Qt::Key_E);
    }
    shown.settle();
    ASSERT_EQ(shown.cuts(), 2);
    auto* timeline = shown.item<TimelineView>();
    ASSERT_TRUE(timeline);
    timeline->walk("first", false);
    EXPECT_EQ(shown.editor().picked()->id, shown.editor().video()->cuts[0].id);
    timeline->walk("next", true);
    EXPECT_EQ(TimelinePicks::all(shown.editor()).size(), 2);
    timeline->zoomRound(40, 0);
    timeline->walk("last", false);
    EXPECT_GT(timeline->scroll(), 0) << "what is picked is in view";
    timeline->walk("no such way", false);
    EXPECT_EQ(shown.editor().picked()->id, shown.editor().video()->cuts[1].id);
    timeline->goToPick();
    EXPECT_NEAR(shown.editor().playback.time(), 4, 0.02);
}
