#include "app/desktop/settings/SettingsSheet.h"
#include "app/desktop/timeline/TimelineLook.h"
#include "app/editor/Keys.h"
#include "core/model/Settings.h"
#include "platform/store/SettingsStore.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using SettingsSheetTest = OnWindow<WindowOfProject>;

TEST(SettingsSheet, whatIsSetHoldsAtOnceAndWithinBounds) {
    SettingsSheet sheet;
    sheet.setNumber("clipFilmstrip", 60);
    EXPECT_EQ(TimelineLook::current().filmstrip, 60);
    sheet.setNumber("clipFilmstrip", -5);
    EXPECT_EQ(TimelineLook::current().filmstrip, 0);
    sheet.setNumber("clipFilmstrip", 40);
    sheet.setOn("clipNames", false);
    EXPECT_FALSE(TimelineLook::current().names);
    sheet.setOn("clipNames", true);
    sheet.setText("language", " de ");
    EXPECT_EQ(Settings::language(), "de");
    EXPECT_EQ(sheet.languageName(), "German");
    sheet.setText("language", "");
    EXPECT_EQ(Settings::language(), "th");

    sheet.setNumber("zoom", 1);
    sheet.setOn("mcp", true);
    sheet.setText("openProjects", "x");
    EXPECT_EQ(SettingsStore::standard().boolean("mcp"), std::nullopt) << "only what the sheet shows";
    EXPECT_EQ(sheet.problem(), "");
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
