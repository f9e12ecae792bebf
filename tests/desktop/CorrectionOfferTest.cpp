#include "tests/desktop/TranscriptWindow.h"

using namespace murbo;

namespace {

struct OfferWindow : TranscriptWindow {
    OfferWindow() {
        editor().apply([](Project& project) {
            auto& lines = project.transcripts[project.sources[0].id].lines.edit();
            lines[0].text = "one hart left";
            lines[2].text = "Hart, hart";
            lines[3].text = "no no the hart";
        });
        settle();
    }
    /// Types a letter into the first line's "hart", and leaves the line.
    void correct() {
        press(0);
        key(Qt::Key_Home);
        for (int at = 0; at < 5; ++at) key(Qt::Key_Right);
        type("e");
        key(Qt::Key_Return);
    }
};

using CorrectionOfferTest = OnWindow<OfferWindow>;

}

TEST_F(CorrectionOfferTest, aCorrectedWordIsOfferedForAllOtherPlaces) {
    shown->correct();
    ASSERT_EQ(shown->said(0), "one heart left");
    EXPECT_EQ(shown->page().offer()->words(), "“hart” stands at 3 other places");
    const auto isShown = [&] {
        const auto* button = shown->named("Correct Everywhere");
        return button && button->mapToScene({0, button->height()}).y() < shown->window().height();
    };
    ASSERT_TRUE(shown->waitFor(isShown));
    shown->clickOn(shown->named("Correct Everywhere"));
    EXPECT_EQ(shown->said(2) + "|" + shown->said(3), "Heart, heart|no no the heart");
    EXPECT_EQ(shown->step(), "Correct Everywhere");
    EXPECT_EQ(shown->page().offer()->words(), "");
    EXPECT_FALSE(shown->named("Correct Everywhere"));
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->said(3), "no no the hart") << "in one step";
    EXPECT_EQ(shown->said(0), "one heart left");
    EXPECT_EQ(shown->onDisk(), shown->editor().project());
}

TEST_F(CorrectionOfferTest, goesWithItsCorrectionAndIsTakenByTheMenu) {
    shown->correct();
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->said(0), "one hart left");
    EXPECT_EQ(shown->page().offer()->words(), "");

    shown->correct();
    shown->key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(shown->project().property("menuOpen").toBool()) << "while the caret stands in a line";
    for (int line = 0; line < 4; ++line) shown->key(Qt::Key_Down);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->said(3), "no no the heart");
    EXPECT_TRUE(shown->area->hasActiveFocus());
    const auto at = shown->placeOf(1, 20).toPoint();
    QTest::mouseClick(&shown->window(), Qt::RightButton, {}, at);
    shown->settle();
    EXPECT_TRUE(shown->project().property("menuOpen").toBool());
    EXPECT_EQ(shown->page().caretRow(), 1);
    shown->key(Qt::Key_Escape);
    EXPECT_FALSE(shown->project().property("menuOpen").toBool());
}
