#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

namespace {

/// A window whose timeline holds both clips.
class TimelineWindow : public WindowOfProject {
public:
    TimelineWindow() {
        putIn(0);
        putIn(1);
        editor().setFocus(Viewer::video);
        waitFor([this] { return view() && view()->blockCount() >= 2; });
        settle();
        before = editor().project();
    }
    TimelineView* view() { return item<TimelineView>(); }
    Project before;
};

using TimelineViewTest = OnWindow<TimelineWindow>;

}

TEST_F(TimelineViewTest, followsWhatLiesBeyondItsEndWithoutGoingRound) {
    auto* view = shown->view();
    view->zoomRound(12, 0);
    int turns = 0;
    const auto follow = [&] {
        if (++turns < 100) view->setScroll(1e9);
    };
    const auto link = QObject::connect(view, &TimelineView::playheadChanged, follow);
    view->setScroll(1e9);
    QObject::disconnect(link);
    EXPECT_LE(turns, 2);
    EXPECT_GT(view->scroll(), 0);
}

TEST_F(TimelineViewTest, runsAlongUnderADragAtItsSide) {
    auto* view = shown->view();
    view->zoomRound(12, 0);
    shown->settle();
    ASSERT_EQ(view->scroll(), 0);
    const auto start = shown->onTimeline(view->shownSpan().time(200));
    const auto side = shown->onTimeline(view->shownSpan().time(view->width() - 4));
    shown->carry(start, side, 2, [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return view->scroll() > 0.5; }, 3000)) << "the hand holds still";
        shown->key(Qt::Key_Escape);
        const double stopped = view->scroll();
        QTest::qWait(100);
        EXPECT_EQ(view->scroll(), stopped);
    });
    EXPECT_EQ(shown->editor().project(), shown->before);
}
