#include "app/desktop/documents/ProjectCards.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(ProjectCards, showTheFirstFrameOfTheLastVideo) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    const auto package = QString::fromStdString(shown.package().string());
    const auto empty = ProjectCards::address(package);
    ASSERT_TRUE(empty.startsWith("image://project/"));
    ProjectCards cards;
    const auto id = [](const QString& address) { return address.mid(QString("image://project/").size()); };
    EXPECT_EQ(cards.requestImage(id(empty), nullptr, {}).width(), 1) << "no video yet";

    auto& editor = shown.editor();
    VideoCommands::create(editor, Video::Aspect::vertical, "One");
    editor.holdClip(editor.project().clips[1].id); // all teal
    CutCommands::addToEnd(editor);
    shown.settle();
    const auto picture = cards.requestImage(id(ProjectCards::address(package)), nullptr, {144, 144});
    ASSERT_EQ(std::max(picture.width(), picture.height()), 144);
    EXPECT_LT(picture.width(), picture.height());
    const auto colour = picture.pixelColor(picture.width() / 2, picture.height() / 2);
    EXPECT_LT(colour.red(), 30);
    EXPECT_NEAR(colour.green(), 128, 12);

    EXPECT_EQ(ProjectCards::address("/no/such.mbproj"), "");
    for (const auto* bad : {"", "%%%", "L25vL3N1Y2g"})
        EXPECT_EQ(cards.requestImage(bad, nullptr, {}).width(), 1) << bad;
}
