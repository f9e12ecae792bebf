#include "app/desktop/captions/CaptionEdits.h"
#include "app/desktop/viewer/HandlesView.h"
#include "app/editor/commands/OverlayCommands.h"
#include "core/playbooks/Playbooks.h"
#include "tests/desktop/SpokenWindow.h"

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
    Project before;
};

using HandlesViewTest = OnWindow<OverlaidWindow>;
using CaptionHandlesTest = OnWindow<SpokenWindow>;

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

TEST_F(CaptionHandlesTest, aCaptionIsMovedByItsPieceOrAsAWhole) {
    auto& editor = shown->editor();
    auto* handles = shown->item<HandlesView>();
    const auto lines = editor.project().transcript(editor.project().sources[0].id).lines;
    CaptionEdits::toggleBreak(editor, lines[0].id, 2);
    editor.setFocus(Viewer::video);
    const auto take = [&](std::size_t line, std::optional<std::int64_t> piece, double time) {
        editor.setPicked(Pick{Pick::Kind::caption, lines[line].id, piece});
        editor.playback.seek(time);
        EXPECT_TRUE(QTest::qWaitFor([&] { return handles->shown(); }, 10000));
        EXPECT_TRUE(handles->words().startsWith("Caption, from left 50"));
        handles->forceActiveFocus(Qt::TabFocusReason);
    };
    const auto entry = [&](std::size_t at) { return *editor.video()->look->captions.line(lines[at].id); };
    take(0, 1, 0.7);
    shown->key(Qt::Key_Right);
    EXPECT_FALSE(entry(0).move || (*entry(0).pieces)[0].move);
    EXPECT_EQ((*entry(0).pieces)[1].move->from, Placement{.x = 0.501});
    EXPECT_EQ(handles->text().toStdString(), lines[0].text);
    take(3, {}, 3.4);
    shown->key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_NEAR(*entry(3).move->from->x, 0.49, 1e-9);
    EXPECT_FALSE(entry(3).move->from->y || entry(3).pieces);
    handles->setText("yes");
    EXPECT_EQ(shown->said(3), "yes");
    EXPECT_EQ(shown->said(0), lines[0].text);
}
