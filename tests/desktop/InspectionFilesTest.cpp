#include "app/desktop/inspector/Inspection.h"
#include "app/editor/commands/OverlayCommands.h"
#include "app/editor/commands/SoundCommands.h"
#include "tests/desktop/WindowOfLibrary.h"

using namespace murbo;

namespace {

/// A window on a playbook with parameters of every type, laid over the video and picked.
struct BookWindow : WindowOfLibrary {
    BookWindow() {
        Playbooks::write(Playbook::decode(R"({"name": "All", "layers": [{"text": "{title}"}], "params": {
            "title": {"type": "text", "value": "Hi"},
            "size": {"type": "number", "value": "0.5", "min": 0, "max": 1},
            "side": {"type": "choice", "value": "left", "options": ["left", "right"]},
            "place": {"type": "choice", "value": "at the top", "options": ["at the top", "in the middle", "below"]},
            "loud": {"type": "toggle", "value": "false"},
            "tint": {"type": "colour", "value": "FFD23F"},
            "clip": {"type": "media"}}})"),
                         {}, "me");
        OverlayCommands::addOverlay(editor(), Playbooks::library().front(), 0.5);
        editor().setInspecting(Inspecting::timeline);
        settle(150);
    }
    std::string filled(const char* key) {
        const auto values = look().overlays.back().values.value_or(Values());
        const auto found = values.find(key);
        return found == values.end() ? "" : found->second;
    }
};

using InspectionFilesTest = OnWindow<BookWindow>;

}

TEST_F(InspectionFilesTest, parametersOfEveryTypeAreSetByKeysAlone) {
    ASSERT_TRUE(shown->tabTo("Loud"));
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->filled("loud"), "true");
    ASSERT_TRUE(shown->tabTo("Place"));
    shown->key(Qt::Key_Down);
    EXPECT_EQ(shown->filled("place"), "in the middle");
    ASSERT_TRUE(shown->tabTo("Side"));
    shown->key(Qt::Key_Right);
    EXPECT_EQ(shown->filled("side"), "right");
    ASSERT_TRUE(shown->tabTo("Size"));
    shown->key(Qt::Key_Right);
    shown->settle(Editor::settlingTime + 100);
    EXPECT_EQ(shown->filled("size"), "0.51");
    ASSERT_TRUE(shown->tabTo("Tint"));
    shown->typeOver("00FF00");
    EXPECT_EQ(shown->filled("tint"), "00FF00");
    ASSERT_TRUE(shown->tabTo("Title"));
    shown->typeOver("Bye");
    EXPECT_EQ(shown->filled("title"), "Bye");

    auto* choose = shown->named("Choose a file for Clip");
    ASSERT_TRUE(choose);
    choose->forceActiveFocus(Qt::TabFocusReason);
    shown->key(Qt::Key_Return);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->named("Folder") != nullptr; }, 6000));
    shown->key(Qt::Key_Escape);
    EXPECT_FALSE(shown->named("Folder"));
    const auto picture = made::file("map.png", "-f lavfi -i color=c=red:size=64x64 -frames:v 1");
    shown->opened->inspected().takeFile("value.clip", WindowOfProject::text(picture));
    shown->settle(100);
    EXPECT_EQ(shown->filled("clip"), "media/pictures/map.png");
    EXPECT_TRUE(std::filesystem::exists(shown->package() / "media/pictures/map.png"));
}

TEST_F(InspectionFilesTest, aSoundIsReplacedAndKeepsItsPlace) {
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
