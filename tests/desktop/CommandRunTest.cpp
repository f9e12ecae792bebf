#include "app/desktop/timeline/CommandRun.h"
#include "tests/desktop/TimelineVideo.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(CommandRun, givesCommandsAndSaysWhatIsWrongWithOne) {
    TimelineVideo video;
    EXPECT_TRUE(CommandRun::run(video.editor, R"(["blade",2])"));
    EXPECT_EQ(video.editor.video()->cuts.size(), 4);
    EXPECT_FALSE(CommandRun::run(video.editor, R"(["blade","two"])"));
    EXPECT_TRUE(video.editor.toast());
    EXPECT_FALSE(CommandRun::run(video.editor, R"(["no such command"])"));
    EXPECT_FALSE(CommandRun::run(video.editor, "no JSON"));
    EXPECT_EQ(CommandRun::title(R"(["undo"])"), "Undo");
    EXPECT_TRUE(CommandRun::possible(video.editor, R"(["undo"])"));
    EXPECT_FALSE(CommandRun::possible(video.editor, R"(["redo"])"));
}
