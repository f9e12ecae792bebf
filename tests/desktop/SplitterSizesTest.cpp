#include "app/desktop/SplitterSizes.h"
#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/OnWindow.h"

#include <algorithm>

using namespace murbo;

using SplitterSizesTest = OnWindow<WindowOfProject>;

TEST_F(SplitterSizesTest, theTimelinesSplitterIsDraggedAndPutBackByADoubleClick) {
    auto* timeline = shown->item<TimelineView>();
    const double before = timeline->height();
    const int line = 800 - 338;
    shown->carry({400, line}, {400, line + 60}, 3);
    EXPECT_NEAR(timeline->height(), before - 60, 6);
    QTest::mouseDClick(&shown->window(), Qt::LeftButton, {}, {400, line + 60});
    EXPECT_NEAR(timeline->height(), before, 1);
}

TEST_F(SplitterSizesTest, theLinesBetweenRegionsAreDraggedMovedByKeysAndRemembered) {
    shown->window().resize(1920, 1080);
    shown->settle();
    const auto size = [&](const char* region) { return SplitterSizes().size(region, 1920); };
    const auto pull = [&](const QPoint& from, const QPoint& by) { shown->carry(from, from + by, 3); };
    pull({196, 300}, {40, 0});
    EXPECT_NEAR(size("sidebar"), 236, 2);
    pull({236 + 305, 300}, {-60, 0});
    EXPECT_NEAR(size("browser"), 244, 3);
    pull({1920 - 340, 300}, {-100, 0});
    EXPECT_NEAR(size("inspector"), 440, 2);
    pull({1920 - 440, 300}, {300, 0});
    EXPECT_GE(size("inspector"), 200) << "never closed by a pull";

    const auto lines = shown->window().findChildren<QQuickItem*>();
    const auto inspector = std::ranges::find_if(
        lines, [](auto* item) { return item->property("region").toString() == "inspector"; });
    ASSERT_NE(inspector, lines.end());
    (*inspector)->forceActiveFocus(Qt::TabFocusReason);
    const double time = shown->editor().playback.time();
    const double before = size("inspector");
    shown->key(Qt::Key_Left);
    shown->key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_NEAR(size("inspector"), before + 40, 1);
    EXPECT_EQ(shown->editor().playback.time(), time) << "the arrows are the line's";
    shown->key(Qt::Key_Return);
    EXPECT_EQ(size("inspector"), 0) << "the standard again";
}
