#include "app/desktop/SplitterSizes.h"
#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(SplitterSizes, areRememberedForWindowsAboutThatWide) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path);
    SplitterSizes sizes;
    sizes.set("timeline", 1280, 300);
    sizes.set("timeline", 1920, 420);
    EXPECT_EQ(SplitterSizes().size("timeline", 1400), 300);
    EXPECT_EQ(SplitterSizes().size("timeline", 1600), 420);
    EXPECT_EQ(sizes.size("timeline", 2560), 0) << "not yet chosen: the standard";
    sizes.set("timeline", 1280, 0);
    EXPECT_EQ(sizes.size("timeline", 1280), 0);
    EXPECT_EQ(sizes.size("timeline", 1920), 420);
}

TEST(SplitterSizes, theTimelinesSplitterIsDraggedAndPutBackByADoubleClick) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    auto* timeline = shown.item<TimelineView>();
    const double before = timeline->height();
    const int line = 800 - 338;
    QTest::mousePress(&shown.window(), Qt::LeftButton, {}, {400, line});
    QTest::mouseMove(&shown.window(), {400, line + 40});
    QTest::mouseMove(&shown.window(), {400, line + 60});
    QTest::mouseRelease(&shown.window(), Qt::LeftButton, {}, {400, line + 60});
    EXPECT_NEAR(timeline->height(), before - 60, 6);
    QTest::mouseDClick(&shown.window(), Qt::LeftButton, {}, {400, line + 60});
    EXPECT_NEAR(timeline->height(), before, 1);
    EXPECT_EQ(Complaints::list(), "");
}
