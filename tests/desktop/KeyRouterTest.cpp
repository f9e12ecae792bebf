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
