#include "app/desktop/documents/HistorySheet.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

QString row(const HistorySheet& sheet, int at) {
    const auto step = sheet.steps()[at].toMap();
    return step["name"].toString() + (step["undone"].toBool() ? " undone" : "");
}

}

TEST(HistorySheet, goesToAnyStepAndForthAgain) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    const auto start = shown.onDisk();
    for (const auto* title : {"One", "Two", "Three"})
        VideoCommands::create(shown.editor(), Video::Aspect::vertical, title);
    const auto end = shown.onDisk();
    HistorySheet sheet(shown.editor());
    ASSERT_EQ(sheet.steps().size(), 4);
    EXPECT_EQ(sheet.now(), 3);

    sheet.go(1);
    EXPECT_EQ(shown.onDisk().videos.size(), 1U);
    EXPECT_EQ(row(sheet, 1), "New Video");
    EXPECT_EQ(row(sheet, 2), "New Video undone");
    sheet.go(-7);
    EXPECT_EQ(sheet.now(), 0);
    EXPECT_EQ(shown.onDisk().videos, start.videos);
    sheet.go(99);
    EXPECT_EQ(shown.onDisk(), end);
}

TEST(HistorySheet, aHundredStepsAreGoneBackAtOnce) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    for (int step = 0; step < 100; ++step)
        VideoCommands::create(shown.editor(), Video::Aspect::vertical, "Video");
    HistorySheet sheet(shown.editor());
    sheet.go(0);
    EXPECT_EQ(shown.onDisk().videos.size(), 0U);
}

TEST(HistorySheet, isWalkedByKeysInItsSheet) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    VideoCommands::create(shown.editor(), Video::Aspect::vertical, "One");
    shown.key(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(shown.project().sheet(), "history");
    shown.settle();
    shown.key(Qt::Key_Up);
    shown.key(Qt::Key_Return);
    EXPECT_EQ(shown.onDisk().videos.size(), 0U);
    EXPECT_EQ(Complaints::list(), "");
}
