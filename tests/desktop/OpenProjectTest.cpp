#include "app/desktop/OpenProject.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using OpenProjectTest = OnWindow<WindowOfProject>;

TEST_F(OpenProjectTest, whatCouldNotBeSavedIsSaidUntilItIs) {
    EXPECT_TRUE(shown->named("saved"));
    const auto away = shown->folder / "away.mbproj";
    std::filesystem::rename(shown->package(), away);
    VideoCommands::create(shown->editor(), Video::Aspect::square, "One");
    shown->settle();
    const QString words = "Not saved: “p.mbproj” is not in its place any more. Murbo goes on trying.";
    EXPECT_EQ(shown->toasts.last(), words);
    auto* state = shown->named(words);
    ASSERT_TRUE(state);
    EXPECT_FALSE(state->property("truncated").toBool()) << "there is room for it";
    shown->settle(5000); // longer than a toast stays
    EXPECT_TRUE(shown->named(words));
    EXPECT_FALSE(std::filesystem::exists(shown->package())) << "it comes not back in pieces";

    // Nothing of it is lost by closing.
    shown->window().close();
    shown->settle();
    ASSERT_EQ(shown->desktop->windows().size(), 1U);
    EXPECT_EQ(shown->project().sheet(), "closing");
    shown->key(Qt::Key_Escape);
    VideoCommands::create(shown->editor(), Video::Aspect::square, "Two");
    std::filesystem::rename(away, shown->package());
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->named("saved") != nullptr; }, 10000));
    EXPECT_EQ(shown->onDisk(), shown->editor().project());
}
