#include "app/desktop/documents/HistorySheet.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

namespace {

QString row(const HistorySheet& sheet, int at) {
    const auto step = sheet.steps()[at].toMap();
    return step["name"].toString() + (step["undone"].toBool() ? " undone" : "");
}

using HistorySheetTest = OnWindow<WindowOfProject>;

}

TEST_F(HistorySheetTest, goesToAnyStepAndForthAgain) {
    const auto start = shown->onDisk();
    for (const auto* title : {"One", "Two", "Three"})
        VideoCommands::create(shown->editor(), Video::Aspect::vertical, title);
    const auto end = shown->onDisk();
    HistorySheet sheet(shown->editor());
    ASSERT_EQ(sheet.steps().size(), 4);
    EXPECT_EQ(sheet.now(), 3);

    sheet.go(1);
    EXPECT_EQ(shown->onDisk().videos.size(), 1U);
    EXPECT_EQ(row(sheet, 1), "New Video");
    EXPECT_EQ(row(sheet, 2), "New Video undone");
    sheet.go(-7);
    EXPECT_EQ(sheet.now(), 0);
    EXPECT_EQ(shown->onDisk().videos, start.videos);
    sheet.go(99);
    EXPECT_EQ(shown->onDisk(), end);
}

TEST_F(HistorySheetTest, isWalkedByKeysInItsSheet) {
    VideoCommands::create(shown->editor(), Video::Aspect::vertical, "One");
    shown->key(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(shown->project().sheet(), "history");
    shown->settle();
    shown->key(Qt::Key_Up);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->onDisk().videos.size(), 0U);
}
