#include "app/desktop/viewer/FramingResult.h"
#include "app/desktop/viewer/FramingView.h"
#include "tests/desktop/OnWindow.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A window with its first clip held and the framing up.
class FramedWindow : public WindowOfProject {
public:
    FramedWindow() {
        editor().holdClip(editor().project().clips[0].id);
        [[maybe_unused]] const bool loaded =
            QTest::qWaitFor([this] { return editor().source.isLoaded(); }, 10000);
        [[maybe_unused]] const bool done = project().perform("framing");
        [[maybe_unused]] const bool drawn =
            QTest::qWaitFor([this] { return boxes() && boxes()->width() > 100; }, 10000);
        settle(100);
    }
    FramingView* boxes() { return item<FramingView>(); }
    const std::optional<Framing>& framing() { return editor().project().sources[0].framing; }
    QPoint point(double x, double y) {
        return boxes()->mapToScene({x * boxes()->width(), y * boxes()->height()}).toPoint();
    }
    void drag(const QPoint& from, const QPoint& to, bool letGo = true) {
        QTest::mousePress(&window(), Qt::LeftButton, {}, from);
        QTest::mouseMove(&window(), (from + to) / 2);
        QTest::mouseMove(&window(), to);
        if (letGo) QTest::mouseRelease(&window(), Qt::LeftButton, {}, to);
        settle(20);
    }
};

using FramingViewTest = OnWindow<FramedWindow>;

}

TEST_F(FramingViewTest, aDragDrawsTheFaceAsOneStep) {
    ASSERT_TRUE(shown->boxes());
    const auto before = shown->editor().project();
    shown->drag(shown->point(0.62, 0.95), shown->point(0.12, 0.75));
    ASSERT_TRUE(shown->framing());
    EXPECT_NEAR(shown->framing()->face.x, 0.1, 0.01);
    EXPECT_NEAR(shown->framing()->face.y, 0.24, 0.01);
    EXPECT_NEAR(shown->framing()->face.w, 0.38, 1e-9) << "moved, not made larger";
    EXPECT_EQ(shown->editor().history().undoName(), FramingView::stepName);
    EXPECT_EQ(shown->onDisk().sources[0].framing, shown->framing());

    shown->drag(shown->point(0.1, 0.24), shown->point(0.2, 0.4));
    EXPECT_NEAR(shown->framing()->face.w, 0.28, 0.01) << "its corner was pulled";

    shown->key(Qt::Key_Z, Qt::ControlModifier);
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), before);
}

TEST_F(FramingViewTest, escapePutsADragBackAndThenGoesAway) {
    ASSERT_TRUE(shown->boxes());
    const auto before = shown->editor().project();
    shown->drag(shown->point(0.62, 0.95), shown->point(0.2, 0.7), false);
    EXPECT_NE(shown->editor().project(), before);
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->editor().project(), before);
    EXPECT_TRUE(shown->editor().framing());
    QTest::mouseRelease(&shown->window(), Qt::LeftButton, {}, shown->point(0.2, 0.7));
    shown->key(Qt::Key_Escape);
    EXPECT_FALSE(shown->editor().framing());
    EXPECT_EQ(shown->editor().history().undoName(), std::nullopt);
}

TEST_F(FramingViewTest, arrowsMoveWhatIsChosen) {
    ASSERT_TRUE(shown->boxes());
    const double time = shown->editor().source.time();
    shown->boxes()->setChosen(1);
    shown->boxes()->forceActiveFocus(Qt::TabFocusReason);
    shown->key(Qt::Key_Left);
    shown->key(Qt::Key_Up, Qt::ShiftModifier);
    ASSERT_TRUE(shown->framing());
    EXPECT_NEAR(shown->framing()->face.x, 0.599, 1e-9);
    EXPECT_NEAR(shown->framing()->face.y, 0.43, 1e-9);
    shown->boxes()->setChosen(3);
    shown->key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NEAR(shown->framing()->split, 0.51, 1e-9);
    EXPECT_EQ(shown->editor().source.time(), time) << "the arrows walk no frames meanwhile";
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(shown->framing()) << "what was pressed in one go is one step";
}

TEST_F(FramingViewTest, showsTheSplitAndHasItDragged) {
    auto* result = shown->item<FramingResult>();
    ASSERT_TRUE(result);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !result->frame()->last().empty(); }, 10000));
    shown->settle(100);
    const auto line = [&](double split) {
        return result->mapToScene({result->width() / 2, split * result->height()}).toPoint();
    };
    shown->drag(line(0.5), line(0.7));
    ASSERT_TRUE(shown->framing());
    EXPECT_NEAR(shown->framing()->split, 0.7, 0.02);
    // The panels fill it: no black is left in the upper one.
    const auto picture = shown->window().grabWindow();
    const double ratio = shown->window().effectiveDevicePixelRatio();
    EXPECT_GT(picture.pixelColor(line(0.2) * ratio).lightness(), 10);
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(shown->framing());
}
