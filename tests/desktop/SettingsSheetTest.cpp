#include "app/desktop/settings/SettingsSheet.h"
#include "app/editor/Keys.h"
#include "platform/base/Files.h"
#include "platform/store/SettingsStore.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using SettingsSheetTest = OnWindow<WindowOfProject>;

TEST(SettingsSheet, aChangeThatCannotBeKeptIsSaidUntilOneIsKept) {
    namespace fs = std::filesystem;
    const auto folder = fs::path(std::getenv("XDG_CONFIG_HOME")) / "murbo";
    const auto aside = folder.parent_path() / "aside";
    SettingsSheet sheet;
    sheet.setNumber("snapReach", 9);
    fs::rename(folder, aside);
    Files::writeWhole(folder, "no folder");
    sheet.setNumber("snapReach", 11);
    EXPECT_NE(sheet.problem(), "");
    EXPECT_FALSE(sheet.bind("play", "p"));
    EXPECT_EQ(sheet.moved(), "");
    fs::remove(folder);
    fs::rename(aside, folder);
    EXPECT_EQ(sheet.number("snapReach"), 9);
    sheet.setNumber("snapReach", 12);
    EXPECT_EQ(sheet.problem(), "");
    sheet.useStandardKeys();
    SettingsStore::standard().remove("snapReach");
}

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
