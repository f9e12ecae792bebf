#include "app/desktop/ExportSheet.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(ExportSheet, fillsItsFormAndSaysWhatIsMissing) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    ExportSheet sheet(shown.project());
    sheet.fill();
    EXPECT_EQ(sheet.problem(), "Open a video first");
    VideoCommands::create(shown.editor(), Video::Aspect::vertical, "What? A/B \"test\"");
    EXPECT_EQ(sheet.problem(), "This video has no cuts yet");
    shown.editor().holdClip(shown.editor().project().clips[0].id);
    CutCommands::addToEnd(shown.editor());
    shown.settle();
    sheet.fill();
    EXPECT_EQ(sheet.problem(), "");
    EXPECT_EQ(sheet.property("fileName"), "What- A-B -test-.mp4") << "a name that any system can hold";
    EXPECT_EQ(sheet.facts(), "1080 × 1920 · 30 fps · 0:04");
    EXPECT_EQ(sheet.mutedWords(), "");
    shown.project().toggleMute("music");
    EXPECT_EQ(sheet.mutedWords(), "Rows muted on the timeline's headers: Music");
    EXPECT_EQ(shown.editor().history().undoName(), "Add Clip") << "to mute a row is no step";
}
