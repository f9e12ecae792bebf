#include "app/editor/commands/CommandRun.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(CommandRun, givesCommandsAndSaysWhatIsWrongWithOne) {
    TwoCuts lines;
    EXPECT_TRUE(CommandRun::run(lines.editor(), R"(["blade",2])"));
    EXPECT_EQ(lines.video().cuts.size(), 3);
    EXPECT_FALSE(CommandRun::run(lines.editor(), R"(["blade","two"])"));
    EXPECT_TRUE(lines.editor().toast());
    EXPECT_FALSE(CommandRun::run(lines.editor(), R"(["no such command"])"));
    EXPECT_FALSE(CommandRun::run(lines.editor(), "no JSON"));
    EXPECT_EQ(CommandRun::title(R"(["undo"])"), "Undo");
    EXPECT_TRUE(CommandRun::possible(lines.editor(), R"(["undo"])"));
    EXPECT_FALSE(CommandRun::possible(lines.editor(), R"(["redo"])"));
}
