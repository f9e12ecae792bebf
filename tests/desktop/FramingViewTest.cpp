#include "app/desktop/viewer/FramingResult.h"
#include "app/desktop/viewer/FramingView.h"
#include "tests/desktop/OnWindow.h"

#include <QImage>

using namespace murbo;

namespace {

/// A window with its first clip held and the framing up.
class FramedWindow : public WindowOfProject {
public:
    FramedWindow() {
        editor().holdClip(editor().project().clips[0].id);
        waitFor([this] { return editor().source.isLoaded(); });
        EXPECT_TRUE(project().perform("framing"));
        EXPECT_TRUE(waitFor([this] { return boxes() && boxes()->width() > 100; }));
        settle(100);
    }
    FramingView* boxes() { return item<FramingView>(); }
    const std::optional<Framing>& framing() { return editor().project().sources[0].framing; }
    QPoint point(double x, double y) {
        return boxes()->mapToScene({x * boxes()->width(), y * boxes()->height()}).toPoint();
    }
};

using FramingViewTest = OnWindow<FramedWindow>;

}

TEST_F(FramingViewTest, aDragDrawsTheFaceAsOneStep) {
    const auto before = shown->editor().project();
    shown->carry(shown->point(0.62, 0.95), shown->point(0.12, 0.75), 2);
    ASSERT_TRUE(shown->framing());
    EXPECT_NEAR(shown->framing()->face.x, 0.1, 0.01);
    EXPECT_NEAR(shown->framing()->face.y, 0.24, 0.01);
    EXPECT_NEAR(shown->framing()->face.w, 0.38, 1e-9) << "moved, not made larger";
    EXPECT_EQ(shown->step(), FramingView::stepName);
    EXPECT_EQ(shown->onDisk().sources[0].framing, shown->framing());

    shown->carry(shown->point(0.1, 0.24), shown->point(0.2, 0.4), 2);
    EXPECT_NEAR(shown->framing()->face.w, 0.28, 0.01) << "its corner was pulled";

    shown->key(Qt::Key_Z, Qt::ControlModifier);
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), before);
}

TEST_F(FramingViewTest, escapePutsADragBackAndThenGoesAway) {
    const auto before = shown->editor().project();
    shown->carry(shown->point(0.62, 0.95), shown->point(0.2, 0.7), 2, [&] {
        EXPECT_NE(shown->editor().project(), before);
        shown->key(Qt::Key_Escape);
        EXPECT_EQ(shown->editor().project(), before);
        EXPECT_TRUE(shown->editor().framing());
    });
    shown->key(Qt::Key_Escape);
    EXPECT_FALSE(shown->editor().framing());
    EXPECT_EQ(shown->step(), "");
}

TEST_F(FramingViewTest, showsTheSplitAndHasItDragged) {
    auto* result = shown->item<FramingResult>();
    ASSERT_TRUE(result);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !result->frame()->last().empty(); }, 10000));
    shown->settle(100);
    const auto line = [&](double split) {
        return result->mapToScene({result->width() / 2, split * result->height()}).toPoint();
    };
    shown->carry(line(0.5), line(0.7), 2);
    ASSERT_TRUE(shown->framing());
    EXPECT_NEAR(shown->framing()->split, 0.7, 0.02);
    // The panels fill it: no black is left in the upper one.
    const auto picture = shown->window().grabWindow();
    const double ratio = shown->window().effectiveDevicePixelRatio();
    EXPECT_GT(picture.pixelColor(line(0.2) * ratio).lightness(), 10);
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(shown->framing());
}
