#include "app/editor/commands/IdeaCommands.h"
#include "tests/editor/Lines.h"

using namespace murbo;

TEST(IdeaCommands, anIdeaThatIsGoneMakesNoVideo) {
    Lines lines;
    EXPECT_FALSE(IdeaCommands::makeVideo(lines.editor(), UUID::make()));
    EXPECT_EQ(lines.editor().toast(), "The idea is gone.");
    EXPECT_TRUE(lines.project().videos.empty());
}
