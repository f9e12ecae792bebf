#include "app/desktop/documents/HistorySheet.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using HistorySheetTest = OnWindow<WindowOfProject>;

TEST_F(HistorySheetTest, marksWhatAModelDid) {
    VideoCommands::create(shown->editor(), Video::Aspect::vertical, "One");
    const HistorySheet sheet(shown->editor());
    const auto byModel = [&](qsizetype step) { return sheet.steps()[step].toMap()["byModel"].toBool(); };
    EXPECT_FALSE(byModel(1));
    for (const auto* step : {"Find Ideas", "Revise Cuts", "Look by AI", "Sound by AI"}) {
        shown->editor().change(step, [](Project& project) { ++project.lastVideo; });
        EXPECT_TRUE(byModel(sheet.now())) << step;
    }
}
