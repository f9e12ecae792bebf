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

TEST_F(TimelineViewTest, zoomsRoundThePointerAndFits) {
    auto* view = shown->view();
    view->fit();
    EXPECT_LE(view->shownSpan().x(7), view->width());
    const double time = view->shownSpan().time(100);
    view->zoomRound(6, 100);
    EXPECT_NEAR(view->shownSpan().time(100), time, 1e-6);
    for (int turns = 0; turns < 80; ++turns) view->zoomRound(turns < 40 ? 3 : 0.2, 50);
    EXPECT_GT(view->shownSpan().scale, 0);
    view->fit();
    EXPECT_EQ(view->scroll(), 0);
    view->setScroll(1e9);
    EXPECT_LT(view->scroll(), 10);
}

TEST_F(TimelineViewTest, theOthersPartForACutThatIsCarried) {
    auto* view = shown->view();
    shown->carry(shown->onTimeline(2), shown->onTimeline(6.5), 3, [&] {
        EXPECT_NEAR(view->dropX(), view->shownSpan().x(3), 1) << "where its room begins";
        EXPECT_EQ(shown->editor().project(), shown->before) << "nothing has moved yet";
        shown->key(Qt::Key_Escape);
        EXPECT_LT(view->dropX(), 0);
    });
    EXPECT_EQ(shown->editor().project(), shown->before);
    shown->carry(shown->onTimeline(2), shown->onTimeline(6.5), 3);
    EXPECT_NE(shown->editor().project(), shown->before);
    EXPECT_LT(view->dropX(), 0) << "it has landed";
}

TEST_F(TimelineViewTest, allOfAVideoStaysInViewUntilSomebodyZooms) {
    auto* view = shown->view();
    view->fit();
    shown->window().resize(1100, 800);
    shown->settle();
    EXPECT_LE(view->shownSpan().x(7), view->width());
    view->zoomRound(4, 0);
    const double scale = view->shownSpan().scale;
    shown->window().resize(1400, 800);
    shown->settle();
    EXPECT_EQ(view->shownSpan().scale, scale);
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

TEST_F(TimelineViewTest, theBladeShowsTheMomentThatItWouldCut) {
    shown->editor().setSnapping(false);
    shown->key(Qt::Key_B);
    QTest::mouseMove(&shown->window(), shown->onTimeline(5) - QPoint(5, 0));
    QTest::mouseMove(&shown->window(), shown->onTimeline(5));
    EXPECT_NEAR(shown->view()->bladeX(), shown->view()->shownSpan().x(5), 1);
    EXPECT_TRUE(shown->view()->hint().startsWith("0:01") || shown->view()->hint().startsWith("0:00.9"))
        << "a second into the second clip: " << shown->view()->hint().toStdString();
}
