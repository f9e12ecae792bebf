#include "app/desktop/OpenProject.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(OpenProject, whatCouldNotBeSavedIsSaidUntilItIs) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    EXPECT_TRUE(shown.named("saved"));
    QString said;
    QObject::connect(&shown.project(), &OpenProject::toast, [&](const QString& words) { said = words; });
    const auto away = shown.folder / "away.mbproj";
    std::filesystem::rename(shown.package(), away);
    VideoCommands::create(shown.editor(), Video::Aspect::square, "One");
    shown.settle();
    const QString words = "Not saved: “p.mbproj” is not in its place any more. Murbo goes on trying.";
    EXPECT_EQ(said, words);
    auto* state = shown.named(words);
    ASSERT_TRUE(state);
    EXPECT_FALSE(state->property("truncated").toBool()) << "there is room for it";
    shown.settle(5000); // longer than a toast stays
    EXPECT_TRUE(shown.named(words));

    // Nothing of it is lost by closing.
    shown.window().close();
    shown.settle();
    ASSERT_EQ(shown.desktop->windows().size(), 1U);
    EXPECT_EQ(shown.project().sheet(), "closing");
    shown.key(Qt::Key_Escape);
    VideoCommands::create(shown.editor(), Video::Aspect::square, "Two");
    std::filesystem::rename(away, shown.package());
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.named("saved") != nullptr; }, 10000));
    EXPECT_EQ(shown.onDisk(), shown.editor().project());
    EXPECT_EQ(Complaints::list(), "");
}
