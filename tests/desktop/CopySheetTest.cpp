#include "app/desktop/documents/CopySheet.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/OnWindow.h"

#include <QSignalSpy>

using namespace murbo;

using CopySheetTest = OnWindow<WindowOfProject>;

TEST_F(CopySheetTest, makesASecondProjectAndNeverOverOne) {
    VideoCommands::create(shown->editor(), Video::Aspect::vertical, "One");
    CopySheet sheet(shown->editor());
    QSignalSpy made(&sheet, &CopySheet::made);
    sheet.fill();
    EXPECT_EQ(sheet.property("name").toString(), "p copy");
    sheet.start(false);
    ASSERT_TRUE(shown->waitFor([&] { return !sheet.busy(); }));
    ASSERT_EQ(made.count(), 1) << sheet.problem().toStdString();
    const std::filesystem::path copy = made[0][0].toString().toStdString();
    EXPECT_EQ(ProjectPackage::read(copy), shown->editor().project());
    EXPECT_EQ(ProjectPackage::readHistory(copy).undoName(), "New Video") << "its history comes along";

    sheet.start(false);
    ASSERT_TRUE(shown->waitFor([&] { return !sheet.busy(); }));
    EXPECT_EQ(sheet.problem(), "“p copy.mbproj” is already there.");
    sheet.fill();
    EXPECT_EQ(sheet.property("name").toString(), "p copy 2");
    for (const auto* name : {"", "a/b", ".hidden"}) {
        sheet.setProperty("name", name);
        sheet.start(false);
        EXPECT_NE(sheet.problem(), "") << name;
    }
    EXPECT_EQ(made.count(), 1);
}

TEST_F(CopySheetTest, saveAsTakesTheWindowsPlaceByKeysAlone) {
    shown->key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_EQ(shown->project().sheet(), "saveAs");
    shown->settle();
    for (const auto key : {Qt::Key_N, Qt::Key_E, Qt::Key_W}) shown->key(key);
    shown->opened = nullptr; // it goes
    QTest::keyClick(&shown->desktop->windows().front()->window(), Qt::Key_Return, Qt::ControlModifier);
    const auto there = [&] {
        const auto& windows = shown->desktop->windows();
        return windows.size() == 1 && windows.front()->project().name() == "new";
    };
    EXPECT_TRUE(shown->waitFor(there));
    EXPECT_TRUE(std::filesystem::exists(shown->package()));
}
