#include "app/desktop/inspector/Inspection.h"
#include "app/editor/commands/SoundCommands.h"
#include "tests/desktop/WindowOfLibrary.h"

using namespace murbo;

using InspectionFilesTest = OnWindow<WindowOfLibrary>;

TEST_F(InspectionFilesTest, aSoundIsReplacedAndKeepsItsPlace) {
    shown->editor().setInspecting(Inspecting::timeline);
    SoundCommands::addSound(shown->editor(),
                            made::file("clap.wav", "-f lavfi -i sine=frequency=80:duration=0.4"), "Booms",
                            false, 1.0);
    shown->settle(100);
    auto& inspected = shown->opened->inspected();
    inspected.set("level", -12.0);
    inspected.set("skip", 0.3);
    const auto before = shown->look().sounds[0];
    inspected.takeFile("replace", WindowOfProject::text(shown->folder.file("bad.wav", "no sound")));
    shown->settle(100);
    EXPECT_EQ(shown->look().sounds[0], before);
    const auto tick = made::file("tick.wav", "-f lavfi -i sine=frequency=800:duration=0.2");
    inspected.takeFile("replace", WindowOfProject::text(tick));
    shown->settle(100);
    auto wanted = before;
    wanted.file = "media/sounds/tick.wav";
    wanted.from.reset();
    wanted.skip.reset(); // it would begin after its end
    EXPECT_EQ(shown->look().sounds[0], wanted);
    EXPECT_EQ(shown->step(), "Replace Sound");
    EXPECT_EQ(inspected.title(), "tick");
    shown->clickOn(shown->named("Replace…"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->named("Folder") != nullptr; }, 6000));
}
