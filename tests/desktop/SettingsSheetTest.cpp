#include "app/desktop/settings/SettingsSheet.h"
#include "app/editor/Keys.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using SettingsSheetTest = OnWindow<WindowOfProject>;

TEST_F(SettingsSheetTest, aKeyIsGivenByPressingItAndTheOtherMoves) {
    shown->project().perform("sheet.keys");
    shown->settle();
    SettingsSheet own;

    // The first line of the list is "Play".
    shown->key(Qt::Key_Return);
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->project().sheet(), "keys") << "ends the waiting alone";
    shown->key(Qt::Key_Return);
    shown->key(Qt::Key_J);
    const auto first = static_cast<Command>(0);
    EXPECT_EQ(Keys::standard().key(first), "j");
    EXPECT_EQ(Keys::standard().key(Command::backward), std::string(Keys::standardKey(first)));

    EXPECT_TRUE(own.bind("markStart", "x"));
    EXPECT_TRUE(own.moved().contains("moved to I")) << own.moved().toStdString();
    EXPECT_FALSE(own.bind("markStart", "\t"));
    own.useStandardKeys();
    EXPECT_EQ(Keys::standard().key(Command::backward), "j");
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->project().sheet(), "");
}
