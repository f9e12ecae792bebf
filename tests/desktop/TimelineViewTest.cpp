#include "app/desktop/timeline/TimelineView.h"
#include "tests/desktop/OnWindow.h"

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

namespace {

/// A window whose timeline holds both clips.
class TimelineWindow : public WindowOfProject {
public:
    TimelineWindow() {
        for (const auto& clip : editor().project().clips) {
            editor().holdClip(clip.id);
            key(Qt::Key_E);
        }
        editor().setFocus(Viewer::video);
        [[maybe_unused]] const bool there =
            QTest::qWaitFor([this] { return view() && view()->blockCount() >= 2; }, 5000);
        settle();
        before = editor().project();
    }
    TimelineView* view() { return item<TimelineView>(); }
    QPoint at(double time, double down = 30) {
        const double top = view()->shown().track(TimelineRow::picture)->top;
        return view()->mapToScene({view()->shownSpan().x(time), top + down}).toPoint();
    }
    const Cut& cut(std::size_t index) { return editor().video()->cuts[index]; }
    Project before;
};

using TimelineViewTest = OnWindow<TimelineWindow>;

}

TEST_F(TimelineViewTest, theOthersPartForACutThatIsCarried) {
    ASSERT_EQ(shown->cuts(), 2);
    auto* view = shown->view();
    const auto first = shown->cut(0).id;
    QTest::mousePress(&shown->window(), Qt::LeftButton, {}, shown->at(2));
    for (const double time : {3.0, 5.0, 6.5}) QTest::mouseMove(&shown->window(), shown->at(time));
    EXPECT_NEAR(view->dropX(), view->shownSpan().x(3), 1) << "where its room begins";
    EXPECT_NEAR(view->ghost().width(), 4 * view->shownSpan().scale, 1);
    EXPECT_EQ(shown->editor().project(), shown->before) << "nothing has moved yet";
    shown->key(Qt::Key_Escape);
    EXPECT_LT(view->dropX(), 0);
    QTest::mouseRelease(&shown->window(), Qt::LeftButton, {}, shown->at(6.5));
    EXPECT_EQ(shown->editor().project(), shown->before);

    shown->carry(shown->at(2), shown->at(6.5), 3);
    EXPECT_EQ(shown->cut(1).id, first);
    EXPECT_LT(view->dropX(), 0);
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
    const auto start = view->mapToScene({200, view->shown().track(TimelineRow::picture)->top + 30}).toPoint();
    const auto side =
        view->mapToScene({view->width() - 4, view->shown().track(TimelineRow::picture)->top + 30}).toPoint();
    QTest::mousePress(&shown->window(), Qt::LeftButton, {}, start);
    QTest::mouseMove(&shown->window(), start + QPoint(40, 0));
    QTest::mouseMove(&shown->window(), side);
    EXPECT_TRUE(QTest::qWaitFor([&] { return view->scroll() > 0.5; }, 3000)) << "the hand holds still";
    EXPECT_GT(view->ghost().width(), 0);
    shown->key(Qt::Key_Escape);
    const double stopped = view->scroll();
    QTest::qWait(100);
    EXPECT_EQ(view->scroll(), stopped);
    QTest::mouseRelease(&shown->window(), Qt::LeftButton, {}, side);
    EXPECT_EQ(shown->editor().project(), shown->before);
}

TEST_F(TimelineViewTest, theBladeShowsTheMomentThatItWouldCut) {
    shown->editor().setSnapping(false);
    shown->key(Qt::Key_B);
    QTest::mouseMove(&shown->window(), shown->at(5) - QPoint(5, 0));
    QTest::mouseMove(&shown->window(), shown->at(5));
    EXPECT_NEAR(shown->view()->bladeX(), shown->view()->shownSpan().x(5), 1);
    EXPECT_TRUE(shown->view()->hint().startsWith("0:01") || shown->view()->hint().startsWith("0:00.9"))
        << "a second into the second clip: " << shown->view()->hint().toStdString();
    QTest::mouseClick(&shown->window(), Qt::LeftButton, {}, shown->at(5));
    EXPECT_EQ(shown->cuts(), 3);
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), shown->before);
}
