#include "app/desktop/documents/HistorySheet.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using HistorySheetTest = OnWindow<WindowOfProject>;

TEST_F(HistorySheetTest, isWalkedByKeysInItsSheet) {
    VideoCommands::create(shown->editor(), Video::Aspect::vertical, "One");
    shown->key(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(shown->project().sheet(), "history");
    shown->settle();
    shown->key(Qt::Key_Up);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->onDisk().videos.size(), 0U);
}
