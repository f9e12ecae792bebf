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

TEST_F(FootageSheetTest, listsWhatWasHandedOverWithTheReasonOfWhatCannotComeIn) {
    const auto drop = shown->folder / "Drop";
    shown->folder.file("Drop/clip 2.mp4", "no movie");
    shown->folder.file("Drop/notes.txt", "x");
    std::filesystem::copy_file(made::file("plain.mp4", ""), drop / "clip 10.mp4");

    FootageSheet sheet(shown->editor());
    sheet.take({WindowOfProject::text(drop), WindowOfProject::text(drop / "notes.txt"),
                WindowOfProject::text(drop / "clip 2.mp4")});
    ASSERT_TRUE(shown->waitFor([&] { return !sheet.reading(); }, 20000));
    const auto& rows = sheet.files()->rows();
    ASSERT_EQ(rows.size(), 3U) << "each file once";
    EXPECT_EQ(rows[0].name, "clip 2.mp4") << "in the order that people put them";
    EXPECT_NE(rows[0].problem, "");
    EXPECT_EQ(rows[1].problem, "");
    EXPECT_NEAR(rows[1].length, 3, 0.05);
    EXPECT_TRUE(rows[1].detail.startsWith("320 × 180 · 30 fps")) << rows[1].detail.toStdString();
    EXPECT_TRUE(rows[1].detail.endsWith("no sound"));
    EXPECT_EQ(rows[2].problem, "not a movie file");
    EXPECT_EQ(sheet.readable(), 1);
    EXPECT_EQ(sheet.words(), "3 files, 0:03 · 2 can't come in");
    EXPECT_EQ(sheet.property("group").toString(), "Drop");

    sheet.remove(0);
    EXPECT_EQ(sheet.count(), 2);
    sheet.setProperty("group", "Tuesday");
    sheet.setProperty("transcribe", false);
    const auto before = shown->onDisk().sources.size();
    sheet.add();
    const auto project = shown->onDisk();
    ASSERT_EQ(project.sources.size(), before + 1);
    EXPECT_EQ(project.groups.back().name, "Tuesday");
    EXPECT_EQ(shown->step(), "Add Footage");
    EXPECT_EQ(shown->editor().sidebar().source, project.sources.back().id);
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
