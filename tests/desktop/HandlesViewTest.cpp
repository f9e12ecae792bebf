#include "app/desktop/viewer/HandlesView.h"
#include "app/editor/commands/OverlayCommands.h"
#include "core/playbooks/Playbooks.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

namespace {

/// The one overlay of a video, standing on the picture with its box shown.
class OverlaidWindow : public WindowOfProject {
public:
    OverlaidWindow() {
        putIn();
        editor().setFocus(Viewer::video);
        if (const auto label = Playbooks::find("stock.label"))
            OverlayCommands::addOverlay(editor(), *label, 0);
        before = editor().project();
        waitFor([this] { return editor().playback.isLoaded() && !editor().isBusy(); });
        editor().playback.seek(1);
        EXPECT_TRUE(waitFor([this] { return handles() && handles()->shown(); }));
        settle(50);
    }
    HandlesView* handles() { return item<HandlesView>(); }
    const Overlay& overlay() { return editor().video()->look->overlays[0]; }
    QPoint point(double x, double y) { ///< as seen from the box's middle, in halves of its sides
        const auto box = handles()->boxSize();
        return handles()
            ->mapToScene(handles()->centre() + QPointF(x * box.width() / 2, y * box.height() / 2))
            .toPoint();
    }
    void drag(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers held = {}) {
        QTest::mousePress(&window(), Qt::LeftButton, held, from);
        for (int part = 1; part <= 4; ++part) sendMove(from + (to - from) * part / 4, held);
        QTest::mouseRelease(&window(), Qt::LeftButton, held, to);
        settle(50);
    }
    void sendMove(const QPoint& to, Qt::KeyboardModifiers held) {
        QMouseEvent event(QEvent::MouseMove, QPointF(to), window().mapToGlobal(QPointF(to)), Qt::NoButton,
                          Qt::LeftButton, held);
        QCoreApplication::sendEvent(&window(), &event);
    }
    Project before;
};

using HandlesViewTest = OnWindow<OverlaidWindow>;

}

TEST_F(HandlesViewTest, theBoxIsMovedSizedAndTurnedAsOneStepEach) {
    const auto box = shown->handles()->boxSize();
    EXPECT_LT(box.height(), shown->handles()->height() * 0.9) << "it fits what is seen, not the frame";

    const auto by = QPoint(20, -50);
    shown->drag(shown->point(0.1, 0.1), shown->point(0.1, 0.1) + by, Qt::AltModifier);
    ASSERT_TRUE(shown->overlay().move && shown->overlay().move->from);
    EXPECT_NEAR(*shown->overlay().move->from->x, 0.5 + by.x() / shown->handles()->width(), 0.01);
    EXPECT_NEAR(*shown->overlay().move->from->y, 0.5 + by.y() / shown->handles()->height(), 0.01);
    EXPECT_EQ(shown->step(), "Move Overlay");

    const auto middle = shown->handles()->centre();
    shown->drag(shown->point(1, 1), shown->point(0.5, 0.5));
    EXPECT_NEAR(*shown->overlay().move->from->scale, 0.5, 0.06);
    EXPECT_LT(QLineF(shown->handles()->centre(), middle).length(), 2) << "about its own middle";
    EXPECT_EQ(shown->step(), "Size Overlay");

    const auto knob = shown->handles()->mapToScene(
        shown->handles()->centre() -
        QPointF(0, shown->handles()->boxSize().height() / 2 + shown->handles()->knobAbove()));
    const auto centre = shown->handles()->mapToScene(shown->handles()->centre());
    shown->drag(knob.toPoint(), (centre + QPointF(100, 0)).toPoint());
    EXPECT_NEAR(*shown->overlay().move->from->rotation, 90, 1e-6);
    EXPECT_EQ(shown->onDisk().videos, shown->editor().project().videos);

    for (int step = 0; step < 3; ++step) shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), shown->before);
}

TEST_F(HandlesViewTest, itCatchesAtTheMiddleAndEscapePutsItBack) {
    const auto start = shown->point(0, 0);
    const double wide = shown->handles()->width();
    const int across = static_cast<int>(wide / 2 - shown->handles()->centre().x());
    QTest::mousePress(&shown->window(), Qt::LeftButton, {}, start);
    shown->sendMove(start + QPoint(40, 0), {});
    shown->sendMove(start + QPoint(across + 4, 0), {});
    EXPECT_NEAR(shown->handles()->guideX(), wide / 2, 0.6);
    EXPECT_NEAR(shown->handles()->centre().x(), wide / 2, 0.6);
    shown->sendMove(start + QPoint(across + 4, 0), Qt::AltModifier);
    EXPECT_LT(shown->handles()->guideX(), 0) << "not while Alt is held";
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->editor().project(), shown->before);
    QTest::mouseRelease(&shown->window(), Qt::LeftButton, {}, start);
    EXPECT_EQ(shown->editor().project(), shown->before);
}

TEST_F(HandlesViewTest, arrowsNudgeAndADoublePressEditsTheText) {
    const double time = shown->editor().playback.time();
    shown->handles()->forceActiveFocus(Qt::TabFocusReason);
    shown->key(Qt::Key_Right);
    shown->key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NEAR(*shown->overlay().move->from->x, 0.501, 1e-9);
    EXPECT_NEAR(*shown->overlay().move->from->y, 0.51, 1e-9);
    EXPECT_EQ(shown->editor().playback.time(), time);
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), shown->before);

    ASSERT_NE(shown->handles()->text(), "");
    QTest::mouseDClick(&shown->window(), Qt::LeftButton, {}, shown->point(0, 0));
    shown->settle();
    shown->type("new");
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->handles()->text(), "new") << "and no key of them was a command";
    EXPECT_EQ(shown->step(), "Change Text");
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), shown->before);
}

TEST_F(HandlesViewTest, aClickOnThePicturePicksWhatIsOnTopThere) {
    const auto on = shown->point(0, 0);
    const auto first = shown->overlay().id;
    const auto click = [&](const QPoint& at, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(&shown->window(), Qt::LeftButton, held, at);
        shown->settle(200);
    };
    const auto picked = [&] { return shown->editor().picked() ? shown->editor().picked()->id : UUID{}; };
    click(shown->handles()->mapToScene({4, 4}).toPoint());
    EXPECT_FALSE(shown->editor().picked()) << "beside it its handles go";
    click(on);
    EXPECT_EQ(picked(), first);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->handles()->shown(); }, 5000));

    OverlayCommands::addOverlay(shown->editor(), *Playbooks::find("stock.label"), 0);
    const auto second = shown->editor().picked()->id;
    shown->settle();
    TimelinePicks::set(shown->editor(), {});
    click(on);
    EXPECT_EQ(picked(), second) << "the one that lies over the other";
    const auto before = shown->editor().project();
    shown->editor().playback.seek(3.9);
    click(on);
    EXPECT_EQ(shown->editor().project(), before) << "a click changes nothing";
}

TEST_F(HandlesViewTest, theBoxGoesWithThePictureThatIsSkimmed) {
    shown->editor().setSkimming(true);
    QTest::mouseMove(&shown->window(), shown->onTimeline(3.5));
    QTest::mouseMove(&shown->window(), shown->onTimeline(3.7));
    ASSERT_TRUE(shown->editor().playback.skimmed());
    EXPECT_FALSE(shown->handles()->shown()) << "the overlay is over by then";
    QTest::mouseMove(&shown->window(), QPoint(5, 300));
    EXPECT_TRUE(shown->handles()->shown());
}
