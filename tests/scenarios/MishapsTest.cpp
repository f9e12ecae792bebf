// What should not happen and does: words where they are due, and no crash.
#include "core/model/package/ProjectPackage.h"
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <algorithm>

using namespace murbo;

using Mishaps = Scenario;

TEST_F(Mishaps, filesThatAreNoMoviesAreRefusedInWords) {
    open(scenario::footage());
    folder.file("odd/words.mp4", "these are words");
    folder.file("odd/nothing.mov");
    key("Ctrl+I");
    see("Dialog", "Add Footage");
    clickOn("Button", "Choose Files");
    typeOver("Folder", (folder / "odd").string(), "Add Footage");
    key("Return");
    clickOn("ListItem", "nothing.mov", "Add Footage");
    clickOn("ListItem", "words.mp4", "Add Footage");
    // Name, size, and then why it can't be used.
    const auto refused = [&](const char* name) {
        const auto row = find("ListItem", std::string(name) + ", ", "Add Footage");
        return row && std::ranges::count(row->name, ',') >= 2;
    };
    until("both are listed with what is wrong with them",
          [&] { return refused("nothing.mov") && refused("words.mp4"); });
    EXPECT_FALSE(see("Button", "Add", "Add Footage").enabled);
    key("Ctrl+Return Escape");
    EXPECT_EQ(onDisk(), before);
}

TEST_F(Mishaps, aRecordingThatVanishesWhileItPlaysEndsNothing) {
    auto project = scenario::cutVideo();
    const auto copy = folder / "gone.mp4";
    std::filesystem::copy_file(scenario::bars(), copy);
    project.sources.edit()[0].path = copy.string();
    open(project);
    until("the video can be played", [&] { return see("Button", "Play", "Video viewer").enabled; });
    key("Space");
    until("it plays", [&] { return seconds("Video viewer") > 0.1; });
    std::filesystem::remove(copy);
    std::filesystem::remove(project.sources[2].path);
    until("it plays to its end", [&] { return seconds("Video viewer") > 5.9; });
    turnTo("Clips");
    clickOn("ListItem", "C01", "Browser");
    key("Home Space Ctrl+Home");
    until("a cut is picked", [&] { return block("Cut", 1).selected; });
    key("Delete");
    until("editing goes on", [&] { return video().cuts.size() == 2; });
    undoToStart();
    scenario::plain(); // others need it
}

TEST_F(Mishaps, withNoPlaceForSettingsEditingGoesOn) {
    ProjectPackage::write(scenario::cutVideo(), package, nullptr);
    before = onDisk();
    start({"--open", package.string()}, {{"HOME", "/proc/nobody"},
                                         {"XDG_CONFIG_HOME", "/proc/nobody/config"},
                                         {"XDG_DATA_HOME", "/proc/nobody/data"},
                                         {"XDG_CACHE_HOME", "/proc/nobody/cache"}});
    block("Cut", 3);
    key("S"); // a switch that is kept in the settings
    until("the switch is turned", [&] { return !see("Button", "Skimming").checked; });
    key("Ctrl+Home Delete");
    until("a cut is gone", [&] { return video().cuts.size() == 2; });
    undoToStart();
}
