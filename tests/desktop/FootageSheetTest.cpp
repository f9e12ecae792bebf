#include "app/desktop/footage/FootageSheet.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using FootageSheetTest = OnWindow<WindowOfProject>;

TEST_F(FootageSheetTest, aHugeFolderIsStoppedByItsButtonAndByEsc) {
    const auto drop = shown->folder / "Drop";
    std::filesystem::create_directory(drop);
    constexpr int files = 3000;
    for (int at = 0; at < files; ++at)
        std::filesystem::create_hard_link(made::file("plain.mp4", ""), drop / (std::to_string(at) + ".mp4"));
    auto& sheet = shown->opened->footage();
    shown->opened->takeFootage({WindowOfProject::text(drop)});
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.count() == files; }, 20000));
    shown->settle(200);
    shown->clickOn(shown->named("Stop"));
    ASSERT_TRUE(shown->waitFor([&] { return !sheet.reading(); }, 2000));
    EXPECT_GT(sheet.count(), 0);
    EXPECT_LT(sheet.count(), files);
    EXPECT_EQ(sheet.readable(), sheet.count()) << "what is left was looked at";
    EXPECT_FALSE(shown->named("Stop"));

    sheet.take({WindowOfProject::text(drop)});
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->project().sheet(), "");
    EXPECT_FALSE(sheet.reading());
    EXPECT_EQ(sheet.count(), 0);
}

TEST_F(FootageSheetTest, withoutAPortalFilesAreChosenInTheWindow) {
    shown->key(Qt::Key_I, Qt::ControlModifier);
    shown->settle();
    EXPECT_FALSE(shown->window().findChild<QQuickItem*>("filePicker"));
    shown->key(Qt::Key_Return); // "Choose Files…" has the focus
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->window().findChild<QQuickItem*>("filePicker"); }, 8000));
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->project().sheet(), "");
}
