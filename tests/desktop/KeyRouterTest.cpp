#include "app/desktop/KeyRouter.h"
#include "tests/desktop/OnWindow.h"

#include <QKeyEvent>

using namespace murbo;

using KeyRouterTest = OnWindow<WindowOfProject>;

namespace {

/// A press as a keyboard of that layout sends it; the scan code is the kernel's.
QKeyEvent press(const QString& text, quint32 scanCode) {
    return {QEvent::KeyPress, 0, Qt::NoModifier, scanCode + 8, 0, 0, text};
}

}

TEST(KeyRouter, aKeyThatNoCommandHasIsReadAsOnAUsKeyboard) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path / "config");
    EXPECT_EQ(KeyRouter::typed(press("j", 36)), "j");
    EXPECT_EQ(KeyRouter::typed(press("่", 36)), "j") << "Thai";
    EXPECT_EQ(KeyRouter::typed(press("о", 36)), "j") << "Russian";
    EXPECT_EQ(KeyRouter::typed(press("&", 2)), "1") << "French, without shift";
    EXPECT_EQ(KeyRouter::typed(press("a", 16)), "a") << "a French A is where a US Q is: the letter counts";
    EXPECT_EQ(KeyRouter::onUsKeyboard(0), "");
    EXPECT_EQ(KeyRouter::onUsKeyboard(9999), "");
}

TEST_F(KeyRouterTest, lettersAreNoCommandsWhileSomebodyTypes) {
    shown->key(Qt::Key_B);
    EXPECT_EQ(shown->editor().tool(), EditingTool::blade);
    shown->key(Qt::Key_F, Qt::ControlModifier); // into the search field
    shown->key(Qt::Key_A);
    EXPECT_EQ(shown->editor().tool(), EditingTool::blade);
    EXPECT_EQ(shown->project().browser()->words(), "a");
    shown->key(Qt::Key_Escape);
    shown->key(Qt::Key_A);
    EXPECT_EQ(shown->editor().tool(), EditingTool::select);
}

TEST_F(KeyRouterTest, combinationsAreReadAsOnAUsKeyboardToo) {
    shown->putIn();
    shown->editor().playback.seek(1);
    QKeyEvent russian(QEvent::KeyPress, 0x0418, Qt::ControlModifier, 48 + 8, 0, 0, "\x02");
    QCoreApplication::sendEvent(&shown->window(), &russian);
    EXPECT_EQ(shown->cuts(), 2U) << "Ctrl+B";
    QKeyEvent bare(QEvent::KeyPress, 0x0418, Qt::NoModifier, 48 + 8, 0, 0, "и");
    QCoreApplication::sendEvent(&shown->window(), &bare);
    EXPECT_EQ(shown->editor().tool(), EditingTool::blade) << "B";
    EXPECT_EQ(shown->cuts(), 2U);
}

TEST_F(KeyRouterTest, keysGoToASheetAndNotThroughIt) {
    shown->key(Qt::Key_K, Qt::ControlModifier);
    ASSERT_EQ(shown->project().sheet(), "palette");
    for (const auto key : {Qt::Key_B, Qt::Key_L, Qt::Key_A, Qt::Key_D, Qt::Key_E}) shown->key(key);
    EXPECT_EQ(shown->editor().tool(), EditingTool::select);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->project().sheet(), "");
    EXPECT_EQ(shown->editor().tool(), EditingTool::blade) << "the palette gave the command";
}

TEST_F(KeyRouterTest, aToolsKeyThatIsHeldLendsTheTool) {
    QTest::keyPress(&shown->window(), Qt::Key_B);
    EXPECT_EQ(shown->editor().tool(), EditingTool::blade);
    shown->keyTimes.held = 350;
    QTest::keyRelease(&shown->window(), Qt::Key_B);
    EXPECT_EQ(shown->editor().tool(), EditingTool::select);
    shown->keyTimes.held = 50;
    shown->key(Qt::Key_T);
    EXPECT_EQ(shown->editor().tool(), EditingTool::trim) << "a tap takes it for good";
}
