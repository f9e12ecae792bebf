#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(TimelineView, zoomsRoundThePointerAndFits) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    shown.editor().holdClip(shown.editor().project().clips[0].id);
    shown.key(Qt::Key_E);
    auto* timeline = shown.item<TimelineView>();
    ASSERT_TRUE(timeline);
    timeline->fit();
    EXPECT_LE(timeline->shownSpan().x(4), timeline->width());
    const double time = timeline->shownSpan().time(100);
    timeline->zoomRound(6, 100);
    EXPECT_NEAR(timeline->shownSpan().time(100), time, 1e-6);
    for (int turns = 0; turns < 80; ++turns) timeline->zoomRound(turns < 40 ? 3 : 0.2, 50);
    EXPECT_GT(timeline->shownSpan().scale, 0);
    timeline->fit();
    EXPECT_EQ(timeline->scroll(), 0);
    timeline->setScroll(1e9);
    EXPECT_LT(timeline->scroll(), 10);
    EXPECT_EQ(Complaints::list(), "");
}
