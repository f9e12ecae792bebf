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

TEST_F(OpenProjectTest, theMenuOfAClipHoldsItRenamesItAndCopiesItsTag) {
    auto& project = shown->project();
    project.perform("go.clips");
    shown->settle();
    auto& browser = *project.browser();
    ASSERT_EQ(browser.rowCount(), 2);
    browser.pick(0, Qt::NoModifier);
    browser.pick(1, Qt::ControlModifier);
    browser.askAbout(0);
    EXPECT_TRUE(project.perform("hold"));
    EXPECT_EQ(shown->editor().heldClip(), shown->editor().project().clips[0].id);
    EXPECT_EQ(shown->editor().pickedClips().size(), 2) << "to hold one lets go of none";
    EXPECT_TRUE(project.perform("copyTag"));
    EXPECT_EQ(shown->editor().toast(), "Copied C01, C02");

    browser.askAbout(1);
    ASSERT_TRUE(project.perform("sheet.renameClip"));
    shown->settle();
    EXPECT_TRUE(shown->named("Rename C02"));
    for (const auto key : {Qt::Key_N, Qt::Key_E, Qt::Key_W}) shown->key(key);
    shown->key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(project.sheet(), "");
    EXPECT_EQ(shown->editor().project().clips[1].name, "new");
    EXPECT_EQ(shown->step(), "Rename Clip");
}
